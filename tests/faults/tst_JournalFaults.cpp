#include "app/journal/CommandJournal.h"
#include "tests/faults/DesignsOnDisk.h"
#include "tests/faults/faults.h"
#include "tests/TestClass.h"

#include <Qtilities/Logger.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>

using namespace Faults;
using namespace Qt::Literals::StringLiterals;
using Qtilities::Logging::Logger;

Q_DECLARE_METATYPE(Faults::Fault)

// The journal of what was done, while the system fails under it.
class tst_JournalFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesLaterWhatItCouldNot_data();
    void writesLaterWhatItCouldNot();
};

void tst_JournalFaults::writesLaterWhatItCouldNot_data()
{
    QTest::addColumn<bool>("isFirst");
    QTest::addColumn<Fault>("fault");
    for (const bool isFirst : {true, false}) {
        const QByteArray which = isFirst ? "first" : "second";
        QTest::newRow("journal-1 no room for the " + which)
            << isFirst << Fault {Call::Write, Effect::FailFromThenOn, 1, ENOSPC};
        QTest::newRow("journal-2 room for half of the " + which)
            << isFirst << Fault {Call::Write, Effect::WriteHalf, 1, ENOSPC};
        QTest::newRow("journal-3 an error at the " + which)
            << isFirst << Fault {Call::Write, Effect::FailFromThenOn, 1, EIO};
    }
    QTest::newRow("journal-4 no file")
        << true << Fault {Call::Open, Effect::FailFromThenOn, 1, EACCES};
}

void tst_JournalFaults::writesLaterWhatItCouldNot()
{
    QFETCH(const bool, isFirst);
    QFETCH(const Fault, fault);
    const QTemporaryDir folder;
    const QString place = QDir(folder.path()).canonicalPath();
    const DesignsOnDisk disk(place);
    QVERIFY(QDir().mkpath(disk.path("session/Logs")));
    auto *const journal = CommandJournal::instance();
    journal->clear();
    journal->open();
    if (!isFirst)
        journal->remark(u"before"_s);
    QStringList said;
    const auto connection =
        connect(Logger::instance(), &Logger::messageLogged, this,
                [&said](const QString &, auto, const QString &text) { said.append(text); });
    arm(QFile::encodeName(place).constData(), fault);
    journal->remark(u"one"_s);
    journal->remark(u"two"_s);
    QVERIFY(disarm() > 0);
    QCOMPARE(said,
             QStringList {u"The journal \"%1\" cannot be written: %2"_s.arg(
                 journal->fileName(), qt_error_string(fault.error))});
    journal->remark(u"three"_s);
    disconnect(connection);
    QFile file(journal->fileName());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), journal->text());
    QCOMPARE(journal->entries().size(), isFirst ? 3 : 4);
    journal->clear();
}

TEST_CLASS(tst_JournalFaults)
#include "tst_JournalFaults.moc"
