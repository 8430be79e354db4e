// The program ends although nobody in it wants to: by a signal, or because its display is gone. The
// window that ends is that of another process.

#include "app/DesignsMode.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextPage.h"
#include "app/MainWindow.h"
#include "console/QtclConsole.h"
#include "tests/needed.h"
#include "tests/patience.h"
#include "tests/stories/Story.h"
#include "tests/TestClass.h"

#include <MorvalenCore/EditorManager.h>
#include <Qtilities/FileLoggerEngine.h>
#include <Qtilities/Logger.h>

#include <QDir>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTimer>

#include <csignal>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Logging::FileLoggerEngine;
using Qtilities::Logging::Logger;
using Qtilities::Logging::LoggerEngine;

namespace {

const char folderVariable[] = "MORVALEN_ENDED_STORY";
const char signalVariable[] = "MORVALEN_ENDED_STORY_SIGNAL";

} // namespace

class tst_SuddenEndStory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { folder = std::make_unique<QTemporaryDir>(); }

    void aSignalKeepsWhatIsUnsaved_data();
    void aSignalKeepsWhatIsUnsaved();
    void aLostDisplayKeepsDesigns();

private:
    void workUntilTheEnd();
    std::unique_ptr<QProcess> start(const QProcessEnvironment &environment);
    static QProcessEnvironment usual() { return QProcessEnvironment::systemEnvironment(); }
    // What is in the backups, each as its path and its bytes.
    void checkWhatIsLeft();
    QString path(const QString &name) const { return folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_SuddenEndStory::initTestCase()
{
    if (qEnvironmentVariableIsSet(folderVariable))
        workUntilTheEnd();
}

// What the process does that is ended.
void tst_SuddenEndStory::workUntilTheEnd()
{
    Story story(QByteArray(), qEnvironmentVariable(folderVariable));
    auto *file = new FileLoggerEngine(u"Log File"_s, story.session() + u"/Logs"_s);
    file->setMessageContexts(LoggerEngine::SystemWide);
    Logger::instance()->attachLoggerEngine(file);
    if (!file->open().isOk())
        qFatal("no log");
    story.type(u"designs new uart"_s);
    story.type(u"files add late.v"_s);
    Story::write(story.path(u"notes.txt"_s), "old\n");
    QString error;
    QWidget *page = MorvalenCore::EditorManager::instance()->createEditorForPath(
        story.path(u"notes.txt"_s), &error, QString(), true, false);
    if (!page)
        qFatal("%s", qPrintable(error));
    QTest::keyClicks(page->findChild<QPlainTextEdit *>(), u"new "_s);
    const int number = qEnvironmentVariableIntValue(signalVariable);
    Story::write(story.path(u"ready"_s), "ready");
    // The first SIGTERM makes the window ask; with nobody there comes a second one.
    QTimer::singleShot(500, qApp, [number] { ::raise(number); });
    ::raise(number);
    QTest::qWait(patient());
    qFatal("the process did not end");
}

std::unique_ptr<QProcess> tst_SuddenEndStory::start(const QProcessEnvironment &given)
{
    QProcessEnvironment environment = given;
    environment.insert(QString::fromLatin1(folderVariable), folder->path());
    auto process = std::make_unique<QProcess>();
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setProcessEnvironment(environment);
    // Without the handlers of the test's own that tell of signals.
    process->start(QCoreApplication::applicationFilePath(),
                   {u"tst_SuddenEndStory"_s, u"-nocrashhandler"_s});
    return process;
}

void tst_SuddenEndStory::checkWhatIsLeft()
{
    const QDir backups(path(u"session/Backups"_s));
    const QStringList texts = backups.entryList({u"notes-*.txt"_s}, QDir::Files);
    const QStringList designs = backups.entryList({u"uart-*.xml"_s}, QDir::Files);
    QCOMPARE(texts.size(), 1);
    QCOMPARE(designs.size(), 1);
    QCOMPARE(Story::read(backups.filePath(texts.first())), QByteArray("new old\n"));
    QVERIFY(Story::read(backups.filePath(designs.first())).contains("late.v"));
    QCOMPARE(Story::read(path(u"notes.txt"_s)), QByteArray("old\n"));
    QVERIFY(!Story::read(path(u"session/Designs/uart/component.xml"_s)).contains("late.v"));
    const QDir logs(path(u"session/Logs"_s));
    const QByteArray log = Story::read(logs.filePath(logs.entryList({u"*.log"_s}).value(0)));
    const QString said = QString::fromUtf8(log);
    QVERIFY2(said.contains(u"The changes in \"%1\" are in \"%2\"\n"_s.arg(
                 path(u"notes.txt"_s), backups.filePath(texts.first()))),
             log);
    QVERIFY2(said.contains(u"The changes of the design \"uart\" are in \"%1\"\n"_s.arg(
                 backups.filePath(designs.first()))),
             log);
    // The text is offered by the next window too.
    QCOMPARE(QDir(path(u"session/Unsaved"_s)).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
             1);
}

void tst_SuddenEndStory::aSignalKeepsWhatIsUnsaved_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::newRow("signal-1 SIGTERM") << SIGTERM << u"Terminated"_s;
    QTest::newRow("signal-2 SIGHUP") << SIGHUP << u"Hangup"_s;
}

void tst_SuddenEndStory::aSignalKeepsWhatIsUnsaved()
{
    QFETCH(const int, number);
    QProcessEnvironment environment = usual();
    environment.insert(QString::fromLatin1(signalVariable), QString::number(number));
    const auto process = start(environment);
    QVERIFY(process->waitForFinished(patient()));
    // It ends as signals end processes.
    QCOMPARE(process->exitStatus(), QProcess::CrashExit);
    QCOMPARE(process->exitCode(), number);
    checkWhatIsLeft();
}

void tst_SuddenEndStory::aLostDisplayKeepsDesigns()
{
    NEEDS_TOOL("Xvfb", "xvfb");
    QProcess server;
    server.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x1024x24"_s});
    QVERIFY(server.waitForReadyRead(patient()));
    const QString session = path(u"session"_s);
    QVERIFY(QDir().mkpath(session + u"/Scripts"_s));
    Story::write(session + u"/Scripts/startup.tcl"_s,
                 "designs new uart; files add late.v\nafter 300 {close [open ready w]}\n");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, u':' + QString::fromLatin1(server.readLine().trimmed()));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    // Which finds fault with the library of the keyboard's layout.
    environment.insert(u"ASAN_OPTIONS"_s, u"intercept_strndup=0:detect_leaks=0"_s);
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationDirPath() + u"/../bin/morvalen"_s,
                  {u"--session"_s, session});
    const QString ready = session + u"/Scripts/ready"_s;
    QTRY_VERIFY(QFile::exists(ready) || process.state() == QProcess::NotRunning);
    QVERIFY2(QFile::exists(ready), process.readAll());
    server.kill();
    QVERIFY(server.waitForFinished(patient()));
    QVERIFY(process.waitForFinished(patient()));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 1);
    const QDir backups(session + u"/Backups"_s);
    const QStringList designs = backups.entryList({u"uart-*.xml"_s}, QDir::Files);
    QCOMPARE(designs.size(), 1);
    QVERIFY(Story::read(backups.filePath(designs.first())).contains("late.v"));
    const QDir logs(session + u"/Logs"_s);
    const QByteArray log = Story::read(logs.filePath(logs.entryList({u"*.log"_s}).value(0)));
    QVERIFY2(log.contains("The program is ended from outside, as when its display is gone"), log);
}

TEST_CLASS(tst_SuddenEndStory)
#include "tst_SuddenEndStory.moc"
