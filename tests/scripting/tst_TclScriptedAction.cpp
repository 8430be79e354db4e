#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "scripting/TclScriptedAction.h"
#include "scripting/TclScriptManager.h"
#include "tests/sanitized.h"
#include "tests/scripting/ScriptingHost.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using Qtilities::Logging::LoggerEngine;
using TclScripting::TclScriptedAction;

class tst_TclScriptedAction : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void metaObject();
    void factory();
    void instanceFactoryInfo();
    void madeByTheHost();

    void missingFile_data();
    void missingFile();
    void emptyFileLocksForEver();
    void emptyFileWithoutPlaces();
    void aLockedActionIsDestroyedInSilence();

    void successWithoutLog();
    void errorWithoutLog();
    void executeWithoutPlaces();
    void theFileIsOneCommand_data();
    void theFileIsOneCommand();
    void outputIsTakenDuringTheRunOnly();

    void window();
    void extensionWidget_data();
    void extensionWidget();
    void embeddedActionShowsItsWindow();
    void logOfARun_data();
    void logOfARun();
    void theWindowIsUsedAgain();
    void aClosedWindowIsMadeAnew();
    void theWindowOutlivesTheAction();
    void twoActionsOfOneName();
    void theWindowShowsTheRun();

    void runningItself();
    void runningAnother();
    void deletedWhileRunning();
    void fileRemovedWhileRunning();
    void windowClosedWhileRunning();
    void aHugeScript_data();
    void aHugeScript();
    void handlersWithoutEngine();

private:
    static QtclConsole *console() { return QtclConsole::getInstance(nullptr, QString()); }
    QString script(const QByteArray &contents, const QString &name = u"job.tcl"_s);
    TclScriptedAction *action(const QString &path);
    // Gives scripts a command "hook" that does something of the test's.
    void setHook(const std::function<void()> &what);

    QMainWindow mainWindow;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptingHost> host;
    QList<QPointer<TclScriptedAction>> actions;
    std::function<void()> hook;
};

namespace {

QString priority(int type, const QString &text)
{
    return u"logger.logPriorityMessage(, %1, %2, -, -, -)"_s.arg(QString::number(type), text);
}

QString toEngine(const QString &engine, int type, const QString &text)
{
    return u"logger.logMessage(%1, %2, %3, -, -, -)"_s.arg(engine, QString::number(type), text);
}

const QString failed =
    QStringLiteral("Script execution completed with an error, see the log for details");
const QString notLocked =
    QStringLiteral("Command cannot be executed! Failed to lock script mutex...");
const QString empty = QStringLiteral("Command cannot be executed! Script file is empty.");

// The texts of a log, which stand in its last column.
QStringList linesOf(const QAbstractItemModel &log)
{
    QStringList lines;
    for (int row = 0; row < log.rowCount(); ++row)
        lines.append(log.index(row, log.columnCount() - 1).data().toString());
    return lines;
}

int callHook(ClientData what, Tcl_Interp *, int, const char **)
{
    (*static_cast<std::function<void()> *>(what))();
    return TCL_OK;
}

} // namespace

void tst_TclScriptedAction::initTestCase()
{
    QtilitiesApplication::setMainWindow(&mainWindow);
    QtclConsole::getInstance(&mainWindow, u"Welcome"_s);
    commandsManager::getInstance(nullptr)->registerFunction("hook", callHook, "", &hook);
}

void tst_TclScriptedAction::cleanupTestCase()
{
    commandsManager::getInstance(nullptr)->unregisterFunction("hook");
}

void tst_TclScriptedAction::init()
{
    QTest::failOnWarning(QRegularExpression(u"QMutex"_s));
    folder = std::make_unique<QTemporaryDir>();
    host = std::make_unique<ScriptingHost>();
}

void tst_TclScriptedAction::cleanup()
{
    for (const QPointer<TclScriptedAction> &left : std::as_const(actions))
        delete left;
    actions.clear();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *left : windows) {
        if (left != &mainWindow && left->windowTitle().startsWith(u"Script Execution Log"_s))
            delete left;
    }
    host.reset();
    folder.reset();
    hook = {};
}

QString tst_TclScriptedAction::script(const QByteArray &contents, const QString &name)
{
    QFile file(folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write a script");
    return file.fileName();
}

TclScriptedAction *tst_TclScriptedAction::action(const QString &path)
{
    auto *made = new TclScriptedAction;
    made->setFilePath(path);
    made->setName(u"Job"_s);
    actions.append(made);
    return made;
}

void tst_TclScriptedAction::setHook(const std::function<void()> &what) { hook = what; }

void tst_TclScriptedAction::metaObject()
{
    const QMetaObject &meta = TclScriptedAction::staticMetaObject;
    QCOMPARE(meta.className(), "TclScripting::TclScriptedAction");
    QCOMPARE(meta.superClass(), &MorvalenCore::AbstractScriptedAction::staticMetaObject);
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
    }
    QCOMPARE(
        methods,
        (QStringList {u"handleNewConsoleOutput(QString)"_s, u"handleNewErrorOutput(QString)"_s}));
}

void tst_TclScriptedAction::factory()
{
    const std::unique_ptr<QObject> made(TclScriptedAction::factory.createInstance());
    QCOMPARE(made->metaObject(), &TclScriptedAction::staticMetaObject);
    QCOMPARE(made->parent(), nullptr);
}

void tst_TclScriptedAction::instanceFactoryInfo()
{
    using Qtilities::Core::InstanceFactoryInfo;
    QCOMPARE(TclScriptedAction::staticInstanceFactoryInfo(),
             (InstanceFactoryInfo {u"Design Factory"_s, u"text/x-tcl"_s, u""_s}));
    TclScriptedAction made;
    made.setObjectName(u"My job"_s);
    QCOMPARE(made.instanceFactoryInfo(),
             (InstanceFactoryInfo {u"Design Factory"_s, u"text/x-tcl"_s, u"My job"_s}));
    QCOMPARE(made.objectBase(), &made);
    QCOMPARE(std::as_const(made).objectBase(), &made);
}

void tst_TclScriptedAction::madeByTheHost()
{
    const QString path = script("set x 1\n", u"my job.tcl"_s);
    const TclScripting::TclScriptManager manager(nullptr);
    QDir::setCurrent(QDir::rootPath());
    const std::unique_ptr<MorvalenCore::AbstractScriptedAction> made(
        MorvalenCore::ScriptManager::instance()->createAction(u"text/x-tcl"_s, path));
    QVERIFY(qobject_cast<TclScriptedAction *>(made.get()));
    QCOMPARE(made->filePath(), path);
    QCOMPARE(made->getName(), u"my job"_s);
}

void tst_TclScriptedAction::missingFile_data()
{
    QTest::addColumn<bool>("withPlaces");
    QTest::newRow("missing-1 both are told") << true;
    QTest::newRow("missing-2 nobody wants to know") << false;
}

void tst_TclScriptedAction::missingFile()
{
    QFETCH(const bool, withPlaces);
    const QString path = folder->filePath(u"no such file.tcl"_s);
    const QString text =
        u"Executing script failed. The script file does not exist at path: "_s + path;
    bool ok = true;
    QString error;
    QCOMPARE(action(path)->execute(withPlaces ? &ok : nullptr, withPlaces ? &error : nullptr), -1);
    QCOMPARE(host->journal.take(), QStringList {priority(8, text)});
    QCOMPARE(ok, !withPlaces);
    QCOMPARE(error, withPlaces ? text : QString());
}

// The mutex stays locked behind an empty file, even when the file has contents again.
void tst_TclScriptedAction::emptyFileLocksForEver()
{
    const QString path = script("");
    TclScriptedAction *run = action(path);
    const QStringList log {priority(2, u"Executing script: "_s + path)};
    bool ok = true;
    QString error;
    QCOMPARE(run->execute(&ok, &error), -1);
    QCOMPARE(host->journal.take(), log);
    QCOMPARE(ok, false);
    QCOMPARE(error, empty);

    script("set x 1\n");
    ok = true;
    QCOMPARE(run->execute(&ok, &error), -1);
    QCOMPARE(host->journal.take(), log);
    QCOMPARE(ok, false);
    QCOMPARE(error, notLocked);
}

void tst_TclScriptedAction::emptyFileWithoutPlaces()
{
    TclScriptedAction *run = action(script(""));
    QCOMPARE(run->execute(nullptr, nullptr), -1);
    QCOMPARE(run->execute(nullptr, nullptr), -1);
}

void tst_TclScriptedAction::aLockedActionIsDestroyedInSilence()
{
    TclScriptedAction *run = action(script(""));
    run->execute();
    delete run;
}

void tst_TclScriptedAction::successWithoutLog()
{
    const QString path = script("set x [expr {6 * 7}]\nputs hello\nset x\n");
    bool ok = false;
    QString error = u"untouched"_s;
    const QString shown = console()->toPlainText();
    QCOMPARE(action(path)->execute(&ok, &error), 0);
    QCOMPARE(host->journal.take(),
             (QStringList {
                 priority(2, u"Executing script: "_s + path),
                 u"initExec"_s,
                 u"finalizeExec"_s,
                 priority(2, u"Successfully executed script: "_s + path),
             }));
    QCOMPARE(ok, true);
    QCOMPARE(error, u"untouched"_s);
    QCOMPARE(host->logger.loggerEngineNames(), QStringList());
    QVERIFY(host->manager.extensions.isEmpty());
    QCOMPARE(console()->toPlainText(),
             shown + u"set x [expr {6 * 7}]\nputs hello\nset x\n\nhello\n42\nmorvalen > "_s);
}

void tst_TclScriptedAction::errorWithoutLog()
{
    const QString path = script("error {it broke}");
    bool ok = false;
    QString error = u"untouched"_s;
    QCOMPARE(action(path)->execute(&ok, &error), 0);
    QCOMPARE(host->journal.take(),
             (QStringList {
                 priority(2, u"Executing script: "_s + path),
                 u"initExec"_s,
                 u"finalizeExec"_s,
                 priority(8, failed),
             }));
    QCOMPARE(ok, true);
    QCOMPARE(error, u"untouched"_s);
    QVERIFY(console()->toPlainText().endsWith(u"error {it broke}\nit broke\nmorvalen > "_s));
}

void tst_TclScriptedAction::executeWithoutPlaces()
{
    const QString path = script("set ::ran 1");
    action(path)->execute();
    QCOMPARE(host->journal.take().constLast(),
             priority(2, u"Successfully executed script: "_s + path));
}

void tst_TclScriptedAction::theFileIsOneCommand_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("result");
    QTest::newRow("file-1 several lines and braces")
        << QByteArray("proc f {} {\n    return one\n}\nf\n") << u"one"_s;
    QTest::newRow("file-2 line ends of another system")
        << QByteArray("set a 1\r\nset b 2\r\nexpr {$a + $b}\r\n") << u"3"_s;
    QTest::newRow("file-3 characters beyond ASCII")
        << QByteArray("set x \"\xe2\x82\xac \xc3\xa4\"") << u"\u20ac \u00e4"_s;
    QTest::newRow("file-4 a return ends the script alone")
        << QByteArray("if 1 {return early}\nset x late") << u"early"_s;
    QTest::newRow("file-5 a drive turns every backslash of the file into a slash")
        << QByteArray("set x {c:\\a}\nset y {b\\c}\nlist $x $y") << u"c:/a b/c"_s;
}

void tst_TclScriptedAction::theFileIsOneCommand()
{
    QFETCH(const QByteArray, contents);
    QFETCH(const QString, result);
    TclScriptedAction *run = action(script(contents));
    run->setShowExecutionLog(true);
    QCOMPARE(run->execute(nullptr, nullptr), 0);
    QCOMPARE(host->journal.take().constLast(), toEngine(u"Script.Exec.Job"_s, 2, result));
}

void tst_TclScriptedAction::outputIsTakenDuringTheRunOnly()
{
    TclScriptedAction *run = action(script("puts in"));
    run->setShowExecutionLog(true);
    run->execute();
    QVERIFY(host->journal.take().contains(toEngine(u"Script.Exec.Job"_s, 2, u"in"_s)));
    console()->logConsoleOutput(u"out"_s);
    console()->logErrorOutput(u"out"_s);
    QCOMPARE(host->journal.take(), QStringList());
}

void tst_TclScriptedAction::window()
{
    TclScriptedAction *run = action(script("set x 1"));
    run->setShowExecutionLog(true);
    run->execute();
    QCOMPARE(host->manager.extensions.size(), 1);
    const QWidget *window = host->manager.extensions.first().widget;
    QVERIFY(window);
    QCOMPARE(window->windowTitle(), u"Script Execution Log: Job"_s);
    QCOMPARE(window->size(), QSize(1000, 600));
    const QRect screen = window->screen()->availableGeometry();
    QCOMPARE(QRect(window->pos(), window->size()).center(), screen.center());
    QVERIFY(!window->testAttribute(Qt::WA_QuitOnClose));
    QVERIFY(window->testAttribute(Qt::WA_DeleteOnClose));

    const LoggerEngine *engine = host->logger.loggerEngineReference(u"Script.Exec.Job"_s);
    QVERIFY(engine);
    QCOMPARE(engine->messageContexts(), 2);
    QCOMPARE(engine->messageTypes(), 126);
    QVERIFY(engine->isActive());
}

void tst_TclScriptedAction::extensionWidget_data()
{
    QTest::addColumn<QStringList>("contexts");
    QTest::addColumn<QString>("context");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("offers");
    QTest::newRow("extension-1 the first context")
        << QStringList {u"Context.A"_s, u"Context.B"_s} << u"Context.A"_s << 0 << 1;
    QTest::newRow("extension-2 no context") << QStringList {} << u""_s << 2 << 1;
    QTest::newRow("extension-3 an action of type 6") << QStringList {} << u""_s << 6 << 1;
    QTest::newRow("extension-4 an embedded action keeps its window")
        << QStringList {u"Context.A"_s} << u""_s << 7 << 0;
}

void tst_TclScriptedAction::extensionWidget()
{
    QFETCH(const QStringList, contexts);
    QFETCH(const QString, context);
    QFETCH(const int, type);
    QFETCH(const int, offers);
    host->designManager.contexts = contexts;
    TclScriptedAction *run = action(script("set x 1"));
    run->setShowExecutionLog(true);
    run->setUserActionType(type);
    run->execute();
    QCOMPARE(host->manager.extensions.size(), offers);
    if (offers == 0)
        return;
    const auto &offer = host->manager.extensions.first();
    QCOMPARE(offer.context, context);
    QCOMPARE(offer.title, u"Script Execution Log: Job"_s);
    QVERIFY(offer.widget);
    QCOMPARE(offer.controls, nullptr);
    QCOMPARE(offer.area, 1);
    QCOMPARE(offer.visibility, 2);
    QCOMPARE(offer.modes, QList<int>());
}

void tst_TclScriptedAction::embeddedActionShowsItsWindow()
{
    TclScriptedAction *run = action(script("set x 1"));
    run->setShowExecutionLog(true);
    run->setUserActionType(7);
    run->execute();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return window->windowTitle() == u"Script Execution Log: Job"_s;
    });
    QVERIFY(shown != windows.end());
    QVERIFY((*shown)->isVisible());
}

void tst_TclScriptedAction::logOfARun_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("log");
    const QString engine = u"Script.Exec.Job"_s;
    const QString good = u"Successfully executed script: %1"_s;
    QTest::newRow("log-1 output, errors, result")
        << QByteArray("puts one\nputs stderr two\nputs three\nset x end\n")
        << QStringList {u"initExec"_s,
                        toEngine(engine, 2, u"one"_s),
                        toEngine(engine, 8, u"two"_s),
                        toEngine(engine, 2, u"three"_s),
                        u"finalizeExec"_s,
                        priority(2, good),
                        toEngine(engine, 2, u"end"_s)};
    QTest::newRow("log-2 no result") << QByteArray("puts one\n")
                                     << QStringList {u"initExec"_s, toEngine(engine, 2, u"one"_s),
                                                     u"finalizeExec"_s, priority(2, good)};
    QTest::newRow("log-3 an error behind output")
        << QByteArray("puts one\nerror broken\n")
        << QStringList {u"initExec"_s, toEngine(engine, 2, u"one"_s), u"finalizeExec"_s,
                        priority(8, failed), toEngine(engine, 2, u"broken"_s)};
    QTest::newRow("log-4 an error without a text")
        << QByteArray("error {}\n")
        << QStringList {u"initExec"_s, u"finalizeExec"_s, priority(8, failed)};
    QTest::newRow("log-5 markup and placeholders are text")
        << QByteArray("puts {<b>%1</b>}\n")
        << QStringList {u"initExec"_s, toEngine(engine, 2, u"<b>%1</b>"_s), u"finalizeExec"_s,
                        priority(2, good)};
}

void tst_TclScriptedAction::logOfARun()
{
    QFETCH(const QByteArray, contents);
    QFETCH(QStringList, log);
    const QString path = script(contents);
    log.prepend(priority(2, u"Executing script: "_s + path));
    log.replaceInStrings(u"script: %1"_s, u"script: "_s + path);
    TclScriptedAction *run = action(path);
    run->setShowExecutionLog(true);
    run->execute();
    QCOMPARE(host->journal.take(), log);
}

void tst_TclScriptedAction::theWindowIsUsedAgain()
{
    TclScriptedAction *run = action(script("set x 1"));
    run->setShowExecutionLog(true);
    run->execute();
    run->execute();
    QCOMPARE(host->manager.extensions.size(), 2);
    QCOMPARE(host->manager.extensions[0].widget, host->manager.extensions[1].widget);
    QCOMPARE(host->logger.loggerEngineNames(), QStringList {u"Script.Exec.Job"_s});
}

void tst_TclScriptedAction::aClosedWindowIsMadeAnew()
{
    TclScriptedAction *run = action(script("set x 1"));
    run->setShowExecutionLog(true);
    run->execute();
    const QPointer<QWidget> first = host->manager.extensions.first().widget;
    first->show();
    first->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
    QCOMPARE(host->logger.loggerEngineNames(), QStringList());

    run->execute();
    QCOMPARE(host->manager.extensions.size(), 2);
    QVERIFY(host->manager.extensions.last().widget);
    QCOMPARE(host->logger.loggerEngineNames(), QStringList {u"Script.Exec.Job"_s});
}

void tst_TclScriptedAction::theWindowOutlivesTheAction()
{
    TclScriptedAction *run = action(script("set x 1"));
    run->setShowExecutionLog(true);
    run->execute();
    const QPointer<QWidget> window = host->manager.extensions.first().widget;
    delete run;
    QVERIFY(window);
    QCOMPARE(host->logger.loggerEngineNames(), QStringList {u"Script.Exec.Job"_s});
    delete window;
}

// The second one's engine gets another name, in its first run and in all that follow.
void tst_TclScriptedAction::twoActionsOfOneName()
{
    TclScriptedAction *first = action(script("set x 1"));
    TclScriptedAction *second = action(script("set x 2", u"other.tcl"_s));
    first->setShowExecutionLog(true);
    second->setShowExecutionLog(true);
    first->execute();
    second->execute();
    const QStringList engines = host->logger.loggerEngineNames();
    QCOMPARE(engines.size(), 2);
    QVERIFY(engines[0] != engines[1]);
    QCOMPARE(host->journal.take().constLast(), toEngine(engines[1], 2, u"2"_s));
    second->execute();
    QCOMPARE(host->journal.take().constLast(), toEngine(engines[1], 2, u"2"_s));
}

// With the real log: what the window shows, and that a new run starts with an empty one.
void tst_TclScriptedAction::theWindowShowsTheRun()
{
    Logger log;
    Logger::setInstance(&log);
    const QString path = script("puts one\nputs stderr two\nset x end");
    TclScriptedAction *run = action(path);
    run->setShowExecutionLog(true);
    run->execute();
    log.logMessage(QString(), Logger::Error, u"not addressed to it"_s);
    const auto *view = host->manager.extensions.first().widget->findChild<QTableView *>();
    QVERIFY(view);
    QTRY_COMPARE(linesOf(*view->model()), (QStringList {u"one"_s, u"two"_s, u"end"_s}));
    script("puts again");
    run->execute();
    QTRY_COMPARE(linesOf(*view->model()), QStringList {u"again"_s});
    Logger::setInstance(&host->logger);
    delete host->manager.extensions.first().widget;
}

void tst_TclScriptedAction::runningItself()
{
    const QString path = script("hook\nset x 1");
    TclScriptedAction *run = action(path);
    bool ok = true;
    QString error;
    int code = 0;
    setHook([&] { code = run->execute(&ok, &error); });
    QCOMPARE(run->execute(nullptr, nullptr), 0);
    QCOMPARE(code, -1);
    QCOMPARE(ok, false);
    QCOMPARE(error, notLocked);
    QCOMPARE(host->journal.take(),
             (QStringList {
                 priority(2, u"Executing script: "_s + path),
                 u"initExec"_s,
                 priority(2, u"Executing script: "_s + path),
                 u"finalizeExec"_s,
                 priority(2, u"Successfully executed script: "_s + path),
             }));
    // The refused run has left the mutex to the one that held it.
    setHook({[] {}});
    QCOMPARE(run->execute(nullptr, nullptr), 0);
}

// The console runs one command at a time.
void tst_TclScriptedAction::runningAnother()
{
    const QString innerPath = script("set ::inner 1", u"inner.tcl"_s);
    TclScriptedAction *inner = action(innerPath);
    inner->setName(u"Inner"_s);
    inner->setShowExecutionLog(true);
    const QString path = script("hook");
    bool ok = false;
    int code = -1;
    setHook([&] { code = inner->execute(&ok, nullptr); });
    QCOMPARE(action(path)->execute(nullptr, nullptr), 0);
    QCOMPARE(code, 0);
    QCOMPARE(ok, true);
    QCOMPARE(host->journal.take(),
             (QStringList {
                 priority(2, u"Executing script: "_s + path),
                 u"initExec"_s,
                 priority(2, u"Executing script: "_s + innerPath),
                 u"initExec"_s,
                 u"finalizeExec"_s,
                 priority(8, failed),
                 toEngine(u"Script.Exec.Inner"_s, 2, u"Command cannot be executed!"_s),
                 u"finalizeExec"_s,
                 priority(2, u"Successfully executed script: "_s + path),
             }));
}

void tst_TclScriptedAction::deletedWhileRunning()
{
    const QString path = script("puts before\nhook\nputs after\nset x 1");
    TclScriptedAction *run = action(path);
    run->setShowExecutionLog(true);
    setHook([&] { delete run; });
    bool ok = false;
    QCOMPARE(run->execute(&ok, nullptr), 0);
    QCOMPARE(ok, true);
    QCOMPARE(host->journal.take(),
             (QStringList {
                 priority(2, u"Executing script: "_s + path),
                 u"initExec"_s,
                 toEngine(u"Script.Exec.Job"_s, 2, u"before"_s),
                 u"finalizeExec"_s,
                 priority(2, u"Successfully executed script: "_s + path),
             }));
}

void tst_TclScriptedAction::fileRemovedWhileRunning()
{
    const QString path = script("hook\nset x 1");
    setHook([&] { QVERIFY(QFile::remove(path)); });
    bool ok = false;
    QCOMPARE(action(path)->execute(&ok, nullptr), 0);
    QCOMPARE(ok, true);
    QCOMPARE(host->journal.take().constLast(),
             priority(2, u"Successfully executed script: "_s + path));
}

void tst_TclScriptedAction::windowClosedWhileRunning()
{
    const QString path = script("puts before\nhook\nputs after\nset x 1");
    TclScriptedAction *run = action(path);
    run->setShowExecutionLog(true);
    setHook([&] {
        QWidget *window = host->manager.extensions.first().widget;
        window->show();
        window->close();
        QCoreApplication::sendPostedEvents(window, QEvent::DeferredDelete);
    });
    QCOMPARE(run->execute(nullptr, nullptr), 0);
    QCOMPARE(host->journal.take(),
             (QStringList {
                 priority(2, u"Executing script: "_s + path),
                 u"initExec"_s,
                 toEngine(u"Script.Exec.Job"_s, 2, u"before"_s),
                 u"finalizeExec"_s,
                 priority(2, u"Successfully executed script: "_s + path),
             }));
}

void tst_TclScriptedAction::aHugeScript_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("huge-1 one text without an end of line") << QByteArray("0123456789");
    QTest::newRow("huge-2 many commands") << QByteArray("incr ::count; # one of very many\n");
}

void tst_TclScriptedAction::aHugeScript()
{
    QFETCH(const QByteArray, line);
    // The sanitizer takes many times as long for each letter.
    constexpr qsizetype size = isSanitized ? 5'000'000 : 50'000'000;
    const qsizetype lines = size / line.size();
    const QByteArray body = line.repeated(lines);
    const bool commands = line.startsWith("incr");
    const QString path = script(commands ? "set ::count 0\n" + body + "set ::count\n"
                                         : "string length {" + body + '}');
    TclScriptedAction *run = action(path);
    run->setShowExecutionLog(true);
    QCOMPARE(run->execute(nullptr, nullptr), 0);
    const QString result = QString::number(commands ? lines : lines * line.size());
    QCOMPARE(host->journal.take().constLast(), toEngine(u"Script.Exec.Job"_s, 2, result));
    QVERIFY(console()->toPlainText().endsWith(u'\n' + result + u"\nmorvalen > "_s));
    console()->setPlainText(QString());
}

void tst_TclScriptedAction::handlersWithoutEngine()
{
    TclScriptedAction *run = action(script("set x 1"));
    run->handleNewConsoleOutput(u"text"_s);
    run->handleNewErrorOutput(u"text"_s);
    QCOMPARE(host->journal.take(), QStringList());
}

TEST_CLASS(tst_TclScriptedAction)
#include "tst_TclScriptedAction.moc"
