#include "tests/faults/faults.h"
#include "tests/TestClass.h"

#include <Qtilities/FileLoggerEngine.h>
#include <Qtilities/Logger.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

using namespace Faults;
using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::Logging::FileLoggerEngine;
using Qtilities::Logging::Logger;

Q_DECLARE_METATYPE(Faults::Fault)

namespace {

const QStringList entries {u"one"_s, u"two"_s, u"three"_s};
// So that each entry has a file of its own, and the oldest file goes with the last entry: the first
// of two old ones, or the second where the first cannot be removed.
constexpr qint64 bytesOfAFile = 10;
constexpr int filesKept = 4;

const QStringList oldLogs {u"2001-01-01_000000_1_0001.log"_s, u"2001-01-01_000000_1_0002.log"_s};
const QString theirs = u"theirs.txt"_s;

} // namespace

// The files of the log, while the system fails under them: each call of each kind, until the log is
// written without having met the fault.
class tst_LogFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void losesNothingWithoutAWord_data();
    void losesNothingWithoutAWord();

private:
    void begin(Call call);
    bool meets(const Fault &fault);
    bool isKilled(const Fault &fault);
    void logAll();
    void checkFiles() const;
    void checkNextRun() const;
    QStringList logged() const;
    QByteArray contentOf(const QString &name) const;
    QString logs() const { return place + u"/Logs"_s; }

    QTemporaryDir folder;
    QString place;
    bool hasOthers = false;
    QStringList told;
};

void tst_LogFaults::losesNothingWithoutAWord_data()
{
    QTest::addColumn<Fault>("first");
    for (const Call call : calls) {
        const QByteArray name = nameOf(call);
        for (const int error : {EIO, ENOSPC, EACCES, EROFS}) {
            const QByteArray row = name + ' ' + QByteArray::number(error);
            QTest::newRow("once " + row) << Fault {call, Effect::Fail, 1, error};
            QTest::newRow("for ever " + row) << Fault {call, Effect::FailFromThenOn, 1, error};
        }
        QTest::newRow("kill " + name) << Fault {call, Effect::Kill, 1, 0};
    }
    QTest::newRow("half of it") << Fault {Call::Write, Effect::WriteHalf, 1, ENOSPC};
}

void tst_LogFaults::losesNothingWithoutAWord()
{
    QFETCH(Fault, first);
    int met = 0;
    begin(first.call);
    while (first.effect == Effect::Kill ? isKilled(first) : meets(first)) {
        checkFiles();
        checkNextRun();
        if (QTest::currentTestFailed())
            return qWarning("at the call %d", first.number);
        ++met;
        ++first.number;
        begin(first.call);
    }
    const bool isUsed =
        first.call != Call::Sync && first.call != Call::Rename && first.call != Call::Mode;
    QCOMPARE(met > 0, isUsed);
}

// The folder is made by the log itself where that is what fails.
void tst_LogFaults::begin(Call call)
{
    place = QDir(folder.path()).canonicalPath() + u"/session"_s;
    told.clear();
    hasOthers = call != Call::MakeFolder;
    QVERIFY(QDir(place).removeRecursively());
    QVERIFY(QDir().mkpath(hasOthers ? logs() : place));
    for (const QString &name : oldLogs + QStringList {theirs}) {
        QFile file(logs() + u'/' + name);
        if (hasOthers)
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old\n") == 4);
    }
}

void tst_LogFaults::logAll()
{
    FileLoggerEngine engine(u"File"_s, logs());
    engine.setLimits(bytesOfAFile, filesKept);
    const Status opened = engine.open();
    if (!opened.isOk())
        told.append(opened.text());
    for (const QString &entry : entries)
        engine.logMessage(Logger::Info, entry);
}

bool tst_LogFaults::meets(const Fault &fault)
{
    const auto connection =
        connect(Logger::instance(), &Logger::messageLogged, this,
                [this](const QString &, auto, const QString &text) { told.append(text); });
    arm(QFile::encodeName(place).constData(), fault);
    logAll();
    const bool isMet = disarm() > 0;
    disconnect(connection);
    const bool isWhole = logged() == entries;
    if (isMet && told.size() != (isWhole ? 0 : 1))
        QTest::qFail("says too little or too much", __FILE__, __LINE__);
    if (isMet && !isWhole && !told.value(0).endsWith(u": "_s + qt_error_string(fault.error)))
        QTest::qFail(qPrintable(u"gives a wrong reason: "_s + told.value(0)), __FILE__, __LINE__);
    return isMet;
}

bool tst_LogFaults::isKilled(const Fault &fault)
{
    const pid_t child = fork();
    if (child == 0) {
        arm(QFile::encodeName(place).constData(), fault);
        logAll();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status);
}

// What was logged before is there, what others have is untouched, and the old log goes whole.
void tst_LogFaults::checkFiles() const
{
    const QStringList now = logged();
    QCOMPARE(now, entries.first(now.size()));
    for (const QString &name : oldLogs) {
        if (QFile::exists(logs() + u'/' + name))
            QCOMPARE(contentOf(name), QByteArray("old\n"));
    }
    if (hasOthers)
        QCOMPARE(contentOf(theirs), QByteArray("old\n"));
}

// Another run of the program writes its log, and clears away what is too much.
void tst_LogFaults::checkNextRun() const
{
    FileLoggerEngine engine(u"File"_s, logs());
    engine.setLimits(bytesOfAFile, filesKept);
    const Status opened = engine.open();
    QVERIFY2(opened.isOk(), qPrintable(opened.text()));
    engine.logMessage(Logger::Info, u"again"_s);
    QVERIFY(contentOf(QFileInfo(engine.fileName()).fileName()).endsWith(" Info: again\n"));
    QVERIFY(QDir(logs()).entryList({u"*.log"_s}, QDir::Files).size() <= filesKept);
}

// The texts of all whole lines of ours.
QStringList tst_LogFaults::logged() const
{
    QStringList texts;
    QStringList names = QDir(logs()).entryList({u"*.log"_s}, QDir::Files, QDir::Name);
    names.removeIf([](const QString &name) { return oldLogs.contains(name); });
    for (const QString &name : std::as_const(names)) {
        QList<QByteArray> lines = contentOf(name).split('\n');
        lines.removeLast();
        for (const QByteArray &line : std::as_const(lines))
            texts.append(QString::fromUtf8(line).section(u": "_s, 1));
    }
    return texts;
}

QByteArray tst_LogFaults::contentOf(const QString &name) const
{
    QFile file(logs() + u'/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

GUILESS_TEST_CLASS(tst_LogFaults)
#include "tst_LogFaults.moc"
