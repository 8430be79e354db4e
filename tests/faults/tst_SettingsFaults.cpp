#include "tests/faults/DesignsOnDisk.h"
#include "tests/faults/faults.h"
#include "tests/TestClass.h"

#include <Qtilities/SettingsFile.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>

using namespace Faults;
using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::SettingsFile;
using Qtilities::Core::Status;

Q_DECLARE_METATYPE(Faults::Fault)

namespace {

const QByteArray old = "[Own]\nkept=yes\nlong=" + QByteArray(40'000, 'x') + '\n';

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

// Stands in for that of the system.
class TemporaryFolder
{
public:
    explicit TemporaryFolder(const QString &path) : before(qgetenv("TMPDIR"))
    {
        qputenv("TMPDIR", QFile::encodeName(path));
    }
    ~TemporaryFolder()
    {
        if (before.isNull())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", before);
    }
    Q_DISABLE_COPY_MOVE(TemporaryFolder)

private:
    QByteArray before;
};

} // namespace

// Settings are changed in a copy in the folder for temporary files, which may be full.
class tst_SettingsFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void losesNothingWhereTheCopyFails_data();
    void losesNothingWhereTheCopyFails();
};

void tst_SettingsFaults::losesNothingWhereTheCopyFails_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::newRow("copy-1 no room") << Fault {Call::Write, Effect::FailFromThenOn, 1, ENOSPC};
    QTest::newRow("copy-2 room for a part") << Fault {Call::Write, Effect::WriteHalf, 1, ENOSPC};
    QTest::newRow("copy-3 no room for a folder")
        << Fault {Call::MakeFolder, Effect::FailFromThenOn, 1, ENOSPC};
    QTest::newRow("copy-4 no room for a file")
        << Fault {Call::Open, Effect::FailFromThenOn, 1, ENOSPC};
    QTest::newRow("copy-5 it cannot be renamed") << Fault {Call::Rename, Effect::Fail, 1, EIO};
    QTest::newRow("copy-6 it cannot be written") << Fault {Call::Write, Effect::Fail, 1, EIO};
    QTest::newRow("copy-7 it cannot be closed") << Fault {Call::Close, Effect::Fail, 1, EIO};
}

// At each of the calls, until there are no more of them.
void tst_SettingsFaults::losesNothingWhereTheCopyFails()
{
    QFETCH(Fault, fault);
    const QTemporaryDir folder;
    const QString place = QDir(folder.path()).canonicalPath();
    const QString path = place + u"/session/settings.ini"_s;
    QVERIFY(QDir().mkpath(place + u"/tmp"_s));
    const TemporaryFolder temporary(place + u"/tmp"_s);
    QByteArray changed;
    for (bool isMet = true; isMet; ++fault.number) {
        DesignsOnDisk::write(path, old);
        SettingsFile settings(path);
        settings.set(u"New/key"_s, u"value"_s);
        arm(QFile::encodeName(place + u"/tmp"_s).constData(), fault);
        const Status status = settings.write();
        isMet = disarm() > 0;
        QVERIFY(isMet || status.isOk());
        QCOMPARE(status.text().isEmpty(), status.isOk());
        if (!status.isOk()) {
            QCOMPARE(read(path), old);
            settings.set(u"New/key"_s, u"value"_s);
            QVERIFY2(settings.write().isOk(), qPrintable(status.text()));
        }
        QVERIFY(read(path).contains("value"));
        QVERIFY(read(path).contains(old));
        QCOMPARE(SettingsFile(path).value(u"New/key"_s, {}).toString(), u"value"_s);
    }
    QVERIFY(fault.number > 2);
    QCOMPARE(QDir(place + u"/tmp"_s).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
}

TEST_CLASS(tst_SettingsFaults)
#include "tst_SettingsFaults.moc"
