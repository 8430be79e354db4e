#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "scripting/TclScriptedAction.h"
#include "scripting/TclScriptManager.h"
#include "tests/scripting/ScriptingHost.h"
#include "tests/TestClass.h"

#include <Qtilities/CoreGuiConstants.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::CoreGui::Interfaces::IMode;
using TclScripting::TclScriptManager;

// Console and interpreter are one per process, and the console belongs to the main window until a
// mode takes it: all rows share them, and only the last test initialises a mode.
class tst_TclScriptManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void startUpInOrder();
    void greeting();
    void form();
    void metaObject();
    void modeOperations();
    void icons_data();
    void icons();
    void commandsAreRegistered();
    void execCommad_data();
    void execCommad();
    void execCommadWithoutResult();
    void sessionFolder_data();
    void sessionFolder();
    void startUpScript_data();
    void startUpScript();
    void startUpIsTold_data();
    void startUpIsTold();
    void startUpCommandsAreInTheHistory();
    void initializeModeOnce();

private:
    static QtclConsole *console() { return QtclConsole::getInstance(nullptr, QString()); }
    void writeStartUpScript(const QByteArray &script);

    QMainWindow mainWindow;
    std::unique_ptr<QTemporaryDir> session;
    std::unique_ptr<ScriptingHost> host;
    QString firstConsoleText;
};

namespace {

const QString success = QStringLiteral(
    "logger.logMessage(, 2, Successfully initialized Tcl script environment., -, -, -)");

} // namespace

void tst_TclScriptManager::initTestCase()
{
    QCoreApplication::setApplicationName(u"Testbed"_s);
    QCoreApplication::setApplicationVersion(u"4.2 \u20ac"_s);
    QtilitiesApplication::setMainWindow(&mainWindow);
}

void tst_TclScriptManager::init()
{
    session = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(session->path()).mkdir(u"Scripts"_s));
    QtilitiesApplication::setApplicationSessionPath(session->path());
    host = std::make_unique<ScriptingHost>();
}

void tst_TclScriptManager::cleanup()
{
    QDir::setCurrent(QDir::rootPath());
    host.reset();
    session.reset();
}

void tst_TclScriptManager::writeStartUpScript(const QByteArray &script)
{
    QFile file(session->filePath(u"Scripts/startup.tcl"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(script), script.size());
}

// The first manager of the process makes console and interpreter; the log comes last.
void tst_TclScriptManager::startUpInOrder()
{
    writeStartUpScript("log {from the start-up script}\n");
    const TclScriptManager manager(nullptr);
    firstConsoleText = console()->toPlainText();
    QCOMPARE(
        host->journal.take(),
        (QStringList {
            u"logger.logMessage(, 2, from the start-up script, -, -, -)"_s,
            u"scripts.addKnownScriptType(text/x-tcl, text/x-tcl, Design Factory, text/x-tcl)"_s,
            u"designs.registerFactory(text/x-tcl, )"_s,
            success,
        }));
    QCOMPARE(host->designManager.factory(u"text/x-tcl"_s),
             &TclScripting::TclScriptedAction::factory);
    QCOMPARE(console()->parentWidget(), &mainWindow);
}

void tst_TclScriptManager::greeting()
{
    QCOMPARE(firstConsoleText,
             u"Testbed v4.2 \u20ac\nTcl Scripting Console.\n\nType \"help\" to start.\n\n"
             "morvalen > "_s);
}

void tst_TclScriptManager::form()
{
    TclScriptManager manager(nullptr, &mainWindow);
    QCOMPARE(manager.parentWidget(), &mainWindow);
    QCOMPARE(manager.objectName(), u"TclScriptManager"_s);
    QCOMPARE(manager.windowTitle(), u"Environments Widget"_s);
    QCOMPARE(manager.size(), QSize(652, 505));
    QCOMPARE(manager.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(manager.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(manager.sizePolicy().hasHeightForWidth(),
             QMainWindow().sizePolicy().hasHeightForWidth());
    QVERIFY(manager.centralWidget());
    QCOMPARE(manager.centralWidget()->objectName(), u"centralwidget"_s);
    QCOMPARE(manager.centralWidget()->metaObject()->className(), "QWidget");
}

void tst_TclScriptManager::metaObject()
{
    TclScriptManager manager(nullptr);
    const QMetaObject *meta = manager.metaObject();
    QCOMPARE(meta->className(), "TclScripting::TclScriptManager");
    QCOMPARE(meta->methodCount(), meta->methodOffset());
    QCOMPARE(qobject_cast<IMode *>(&manager), static_cast<IMode *>(&manager));
    QCOMPARE(qobject_interface_iid<IMode *>(), "com.Qtilities.CoreGui.IMode/1.0");
}

void tst_TclScriptManager::modeOperations()
{
    TclScriptManager manager(nullptr);
    IMode &mode = manager;
    QCOMPARE(mode.contextString(), u"Context.TclScriptManager"_s);
    QCOMPARE(mode.contextHelpId(), u""_s);
    QCOMPARE(mode.modeWidget(), &manager);
    QCOMPARE(mode.modeName(), u"Scripting"_s);
    QCOMPARE(mode.modeID(), 105);
    QCOMPARE(mode.modeManagerIds(),
             QList<int> {Qtilities::CoreGui::Constants::qti_def_DEFAULT_MODE_MANAGER});
    QCOMPARE(mode.objectBase(), &manager);
    QCOMPARE(std::as_const(mode).objectBase(), &manager);
    QCOMPARE(mode.modeIcon().pixmap(48, 48).toImage(),
             QPixmap(u":/scripting_mode_48x48.png"_s).toImage());
    // The icon is the mode's own; another one is kept by the base and not shown.
    mode.setModeIcon(QIcon());
    QVERIFY(!mode.modeIcon().isNull());
}

void tst_TclScriptManager::icons_data()
{
    QTest::addColumn<int>("extent");
    QTest::newRow("icon-1 small") << 22;
    QTest::newRow("icon-2 of the mode bar") << 48;
    QTest::newRow("icon-3 large") << 64;
}

void tst_TclScriptManager::icons()
{
    QFETCH(const int, extent);
    const QImage icon(u":/scripting_mode_%1x%1.png"_s.arg(extent));
    QCOMPARE(icon.size(), QSize(extent, extent));
    QCOMPARE(icon.format(), QImage::Format_ARGB32);
    // A picture on a transparent ground.
    QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
    QCOMPARE(qAlpha(icon.pixel(extent / 2, extent / 2)), 255);
}

void tst_TclScriptManager::commandsAreRegistered()
{
    TclScriptManager manager(nullptr);
    const QList<QStringList> rows {
        {u"build"_s, u"Operations on the active build configuration in the active design."_s},
        {u"builds"_s, u"Operations on build configurations in the active design."_s},
        {u"design"_s, u"Operations on the active design."_s},
        {u"designs"_s, u"Operations on open designs."_s},
        {u"files"_s, u"Operations on files in the active design."_s},
        {u"folders"_s, u"Operations on folders in the active design."_s},
        {u"help"_s, u"displays this help message"_s},
        {u"history"_s, u"Shows the commands history"_s},
        {u"log"_s, u"Logs a system wide message"_s},
        {u"logp"_s, u"Logs a priority message"_s},
        {u"overview"_s, u"Provides an overview of current application status."_s},
        {u"project"_s, u"Operations to control projects"_s},
        {u"properties"_s, u"Operations on design parameters in the active design."_s},
        {u"quit"_s, u"Quit"_s},
        {u"save_script"_s, u"Saves a script of executed commands"_s},
        {u"set_prompt"_s, u"Set a new prompt"_s},
        {u"sfile"_s, u"Operations on the active file in the active design."_s},
        {u"sfolder"_s, u"Operations on the active folder in the active design."_s},
        {u"sproperty"_s, u"Operations on the active design parameters in the active design."_s},
    };
    QString listing = u"Commands :\n==========\n"_s;
    for (const QStringList &row : rows)
        listing += (row[0] + u':').leftJustified(13) + row[1] + u'\n';
    int code = -1;
    QCOMPARE(manager.execCommad(u"help"_s, &code), listing);
    QCOMPARE(code, TCL_OK);
}

void tst_TclScriptManager::execCommad_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::newRow("exec-1 a result") << u"expr {6 * 7}"_s << u"42"_s << TCL_OK;
    QTest::newRow("exec-2 an error") << u"error boom"_s << u"boom"_s << TCL_ERROR;
    QTest::newRow("exec-3 an empty command") << u""_s << u""_s << TCL_OK;
    QTest::newRow("exec-4 a path with a drive keeps its backslashes")
        << u"set path {c:\\dir}"_s << u"c:\\dir"_s << TCL_OK;
    QTest::newRow("exec-5 typing exit is not Tcl's exit")
        << u"exit"_s << u"invalid command name \"dbgExit\""_s << TCL_ERROR;
}

void tst_TclScriptManager::execCommad()
{
    QFETCH(const QString, command);
    QFETCH(const QString, text);
    QFETCH(const int, code);
    TclScriptManager manager(nullptr);
    host->journal.take();
    const QString shown = console()->toPlainText();
    int result = -1;
    QCOMPARE(manager.execCommad(command, &result), text);
    QCOMPARE(result, code);
    QCOMPARE(host->journal.take(), QStringList());
    QCOMPARE(console()->toPlainText(), shown);
}

void tst_TclScriptManager::execCommadWithoutResult()
{
    TclScriptManager manager(nullptr);
    QCOMPARE(manager.execCommad(u"error lost"_s, nullptr), u"lost"_s);
}

void tst_TclScriptManager::sessionFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("session-1 plain") << u"session"_s;
    QTest::newRow("session-2 blanks") << u"my own  session"_s;
    QTest::newRow("session-3 brackets") << u"a[set ::hit 1]b"_s;
    QTest::newRow("session-4 a dollar sign") << u"$env(HOME) ${x}"_s;
    QTest::newRow("session-5 quotes") << u"a\"; set ::hit 1; \""_s;
    QTest::newRow("session-6 a backslash") << u"a\\nb\\"_s;
    QTest::newRow("session-7 braces and a comment") << u"}{ #{"_s;
    QTest::newRow("session-8 a percent sign") << u"%1 %2"_s;
    QTest::newRow("session-9 beyond ASCII") << u"Entw\u00fcrfe \u20ac"_s;
}

void tst_TclScriptManager::sessionFolder()
{
    QFETCH(const QString, name);
    const QString folder = session->filePath(name);
    QVERIFY(QDir().mkpath(folder + u"/Scripts"_s));
    QFile script(folder + u"/Scripts/startup.tcl"_s);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("set ::started [pwd]\n");
    script.close();
    QtilitiesApplication::setApplicationSessionPath(folder);

    TclScriptManager manager(nullptr);
    QCOMPARE(manager.execCommad(u"set ::started"_s, nullptr), folder + u"/Scripts"_s);
    QCOMPARE(manager.execCommad(u"pwd"_s, nullptr), folder + u"/Scripts"_s);
    QCOMPARE(manager.execCommad(u"info exists ::hit"_s, nullptr), u"0"_s);
    manager.execCommad(u"unset ::started"_s, nullptr);
}

void tst_TclScriptManager::startUpScript_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("output");
    QTest::newRow("startup-1 none") << QByteArray() << QStringList {};
    QTest::newRow("startup-2 its output goes to the console")
        << QByteArray("puts one\nputs stderr two\nputs three\n")
        << QStringList {u"one"_s, u"! two"_s, u"three"_s};
    QTest::newRow("startup-3 an error is dropped, what was written before it stays")
        << QByteArray("puts before\nerror boom\nputs after\n") << QStringList {u"before"_s};
    QTest::newRow("startup-4 a syntax error is dropped")
        << QByteArray("puts {open\n") << QStringList {};
}

void tst_TclScriptManager::startUpScript()
{
    QFETCH(const QByteArray, script);
    QFETCH(const QStringList, output);
    if (!script.isNull())
        writeStartUpScript(script);
    QStringList written;
    connect(console(), &QtclConsole::newConsoleOutput, this,
            [&written](const QString &text) { written.append(text); });
    connect(console(), &QtclConsole::newErrorOutput, this,
            [&written](const QString &text) { written.append(u"! "_s + text); });
    const TclScriptManager manager(nullptr);
    disconnect(console(), nullptr, this, nullptr);
    QCOMPARE(written, output);
    QCOMPARE(host->journal.take().constLast(), success);
    QVERIFY(!console()->toPlainText().contains(u"boom"_s));
}

void tst_TclScriptManager::startUpIsTold_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("told-1 no script") << QByteArray() << QStringList {};
    QTest::newRow("told-2 nothing written") << QByteArray("set x 1\n") << QStringList {};
    QTest::newRow("told-3 both channels")
        << QByteArray("\nputs one\nputs stderr two\n") << QStringList {u"2 one"_s, u"3 two"_s};
    QTest::newRow("told-4 from a procedure: the line that called it")
        << QByteArray("proc say {} {\n  set x 1\n  puts hi\n}\nsay\n") << QStringList {u"5 hi"_s};
    QTest::newRow("told-5 an error") << QByteArray("set x 1\n\nnonsense\n")
                                     << QStringList {u"3 invalid command name \"nonsense\""_s};
    QTest::newRow("told-6 an error in a procedure")
        << QByteArray("proc fail {} {\n  error {it broke}\n}\nif 1 {\n  fail\n}\n")
        << QStringList {u"5 it broke"_s};
    QTest::newRow("told-7 in a file that the script reads")
        << QByteArray("set f [open more.tcl w]\nputs $f {puts more}\nclose $f\n"
                      "source more.tcl\n")
        << QStringList {u"4 more"_s};
    QTest::newRow("told-8 output does not disturb the script")
        << QByteArray("set x [list [puts one] [catch {puts two; error deep} text] $text]\n"
                      "puts $x\n")
        << QStringList {u"1 one"_s, u"1 two"_s, u"2 {} 1 deep"_s};
}

void tst_TclScriptManager::startUpIsTold()
{
    QFETCH(const QByteArray, script);
    QFETCH(const QStringList, told);
    if (!script.isNull())
        writeStartUpScript(script);
    QStringList news;
    TclScriptManager::listenToStartup([&news](const TclScripting::StartupNews &one) {
        news.append(QString::number(one.line) + u' ' + one.text);
    });
    TclScriptManager manager(nullptr);
    TclScriptManager::listenToStartup({});
    QCOMPARE(news, told);
    manager.execCommad(u"puts later"_s, nullptr);
    QCOMPARE(news, told);
}

void tst_TclScriptManager::startUpCommandsAreInTheHistory()
{
    TclScriptManager manager(nullptr);
    const QStringList lines = manager.execCommad(u"history"_s, nullptr).split(u'\n');
    QVERIFY(lines.size() > 2);
    QCOMPARE(lines[lines.size() - 3].section(u'\t', 1),
             u"cd \"%1/Scripts\""_s.arg(session->path()));
    QCOMPARE(lines[lines.size() - 2].section(u'\t', 1), u"source startup.tcl"_s);
    QCOMPARE(lines.last(), QString());
}

void tst_TclScriptManager::initializeModeOnce()
{
    // Owns the console from now on, and so lives as long as the main window.
    auto *manager = new TclScriptManager(nullptr, &mainWindow);
    const QPointer<QWidget> placeholder = manager->centralWidget();
    manager->initializeMode();
    QCOMPARE(manager->centralWidget(), console());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!placeholder);

    manager->takeCentralWidget();
    auto *other = new QWidget;
    manager->setCentralWidget(other);
    manager->initializeMode();
    QCOMPARE(manager->centralWidget(), other);
    manager->setCentralWidget(console());
}

TEST_CLASS(tst_TclScriptManager)
#include "tst_TclScriptManager.moc"
