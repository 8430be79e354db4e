#include "app/MainWindow.h"
#include "app/window/ScriptMenu.h"
#include "console/QtclConsole.h"
#include "interp/commandsManager.h"
#include "scripting/TclScriptManager.h"
#include "tests/scripting/ScriptingHost.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QDockWidget>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;
using TclScripting::TclScriptManager;

// The Scripts menu in the real window, while scripts run. The console is one per process, so that
// all tests share one window.
class tst_ScriptMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void theLastScriptRunsAgain();
    void aScriptThatRunsAgainIsGone();
    void theKeyboardReachesScripts();
    void aScriptAddedByAScriptAppears();
    void aScriptThatRunsItselfIsRefused();
    void aScriptRemovesItself();
    void aLogIsClosedWhileItsScriptPrints();
    void errorsShow();
    void aFolderThatWasGoneIsFollowedAgain();

private:
    QString pathOf(const QString &name) const { return session.filePath(u"Scripts/"_s + name); }
    void write(const QString &name, const QByteArray &bytes) const;
    QAction *entry(const QString &text) const;
    void trigger(const QString &name) const;
    QDockWidget *logOf(const QString &script) const;
    static int count() { return std::atoi(Tcl_GetVar(interp(), "n", TCL_GLOBAL_ONLY)); }
    static Tcl_Interp *interp() { return commandsManager::getInstance(nullptr)->interp; }
    QStringList priorityMessages();

    QTemporaryDir session;
    std::unique_ptr<ScriptingHost> host;
    Logger log;
    std::unique_ptr<MainWindow> window;
    std::unique_ptr<QSignalSpy> messages;
    ScriptMenu *menu = nullptr;
    QAction *again = nullptr;
    QAction *showLog = nullptr;
    std::function<void()> hook;
};

namespace {

int callHook(ClientData what, Tcl_Interp *, int, const char **)
{
    (*static_cast<std::function<void()> *>(what))();
    return TCL_OK;
}

} // namespace

void tst_ScriptMenu::initTestCase()
{
    QVERIFY(QDir(session.path()).mkdir(u"Scripts"_s));
    QtilitiesApplication::setApplicationSessionPath(session.path());
    host = std::make_unique<ScriptingHost>();
    Logger::setInstance(&log);
    MorvalenCore::MorvalenManager::setInstance(&host->program);

    window = std::make_unique<MainWindow>();
    QtilitiesApplication::setMainWindow(window.get());
    auto *scripting = new TclScriptManager(nullptr, window.get());
    window->addMode(scripting);
    window->activateMode(scripting->modeID());
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get(), patient()));
    commandsManager::getInstance(nullptr)->registerFunction("hook", callHook, "", &hook);
    menu = window->findChild<ScriptMenu *>(u"scriptMenu"_s);
    again = menu->findChild<QAction *>(u"runLastScript"_s);
    showLog = menu->findChild<QAction *>(u"showExecutionLog"_s);
    messages = std::make_unique<QSignalSpy>(&log, &Logger::priorityMessage);
}

void tst_ScriptMenu::init()
{
    QDir folder(session.filePath(u"Scripts"_s));
    const QStringList names = folder.entryList(QDir::Files);
    for (const QString &name : names)
        QVERIFY(folder.remove(name));
    QTRY_VERIFY(menu->scripts().isEmpty());
    showLog->setChecked(false);
    hook = [] {};
    Tcl_Eval(interp(), "set ::n 0");
    messages->clear();
}

void tst_ScriptMenu::cleanupTestCase()
{
    commandsManager::getInstance(nullptr)->unregisterFunction("hook");
    QDir::setCurrent(QDir::rootPath());
    window.reset();
    Logger::setInstance(nullptr);
    host.reset();
}

void tst_ScriptMenu::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(pathOf(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
    file.close();
    QTRY_VERIFY(menu->scripts().contains(pathOf(name)));
}

QAction *tst_ScriptMenu::entry(const QString &text) const
{
    const QList<QAction *> all = menu->actions();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const QAction *one) { return one->text() == text; });
    return found == all.end() ? nullptr : *found;
}

void tst_ScriptMenu::trigger(const QString &name) const
{
    QVERIFY(entry(name));
    entry(name)->trigger();
}

QDockWidget *tst_ScriptMenu::logOf(const QString &script) const
{
    const auto docks = window->findChildren<QDockWidget *>();
    for (QDockWidget *dock : docks) {
        if (dock->windowTitle() == u"Script Execution Log: "_s + script)
            return dock;
    }
    return nullptr;
}

QStringList tst_ScriptMenu::priorityMessages()
{
    QStringList texts;
    for (const QList<QVariant> &message : std::as_const(*messages))
        texts.append(message.at(1).toString());
    messages->clear();
    return texts;
}

void tst_ScriptMenu::theLastScriptRunsAgain()
{
    QVERIFY(!again->isEnabled());
    QCOMPARE(again->text(), u"Run Last Script &Again"_s);
    write(u"a & b.tcl"_s, "incr ::n");
    write(u"c.tcl"_s, "incr ::n 10");
    const auto press = [] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_R,
                        Qt::ControlModifier | Qt::ShiftModifier);
    };
    QCOMPARE(QApplication::focusWidget(), QtclConsole::getInstance(nullptr, QString()));
    press();
    QCOMPARE(count(), 0);
    trigger(u"a && b.tcl"_s);
    QCOMPARE(again->text(), u"Run a && b.tcl &Again"_s);
    press();
    press();
    QCOMPARE(count(), 3);
    trigger(u"c.tcl"_s);
    again->trigger();
    QCOMPARE(count(), 23);
}

void tst_ScriptMenu::aScriptThatRunsAgainIsGone()
{
    write(u"job.tcl"_s, "incr ::n");
    trigger(u"job.tcl"_s);
    messages->clear();
    QVERIFY(QFile::remove(pathOf(u"job.tcl"_s)));
    again->trigger();
    QCOMPARE(priorityMessages(),
             QStringList {u"Executing script failed. The script file does not exist at path: "_s
                          + pathOf(u"job.tcl"_s)});
    QCOMPARE(count(), 1);
}

void tst_ScriptMenu::theKeyboardReachesScripts()
{
    write(u"a.tcl"_s, "incr ::n");
    write(u"b.tcl"_s, "incr ::n 10");
    QTest::keyClick(window.get(), Qt::Key_S, Qt::AltModifier);
    QTRY_COMPARE(QApplication::activePopupWidget(), menu);
    while (menu->activeAction() != entry(u"b.tcl"_s))
        QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QCOMPARE(count(), 10);
    QVERIFY(!menu->isVisible());
}

void tst_ScriptMenu::aScriptAddedByAScriptAppears()
{
    write(u"job.tcl"_s, "set f [open added.tcl w]; puts $f {incr ::n 5}; close $f; hook");
    hook = [this] { QTRY_VERIFY(entry(u"added.tcl"_s)); };
    trigger(u"job.tcl"_s);
    trigger(u"added.tcl"_s);
    QCOMPARE(count(), 5);
}

void tst_ScriptMenu::aScriptThatRunsItselfIsRefused()
{
    write(u"job.tcl"_s, "incr ::n\nhook\nincr ::n");
    hook = [this] { QVERIFY(!menu->run(pathOf(u"job.tcl"_s))); };
    trigger(u"job.tcl"_s);
    const QString path = pathOf(u"job.tcl"_s);
    const QString executing = u"Executing script: "_s + path;
    QCOMPARE(priorityMessages(),
             (QStringList {executing, executing,
                           u"Command cannot be executed! Failed to lock script mutex..."_s,
                           u"Successfully executed script: "_s + path}));
    hook = [] {};
    trigger(u"job.tcl"_s);
    QCOMPARE(count(), 4);
}

void tst_ScriptMenu::aScriptRemovesItself()
{
    write(u"job.tcl"_s, "file delete job.tcl; hook; incr ::n");
    hook = [this] { QTRY_VERIFY(!entry(u"job.tcl"_s)); };
    trigger(u"job.tcl"_s);
    QCOMPARE(count(), 1);
}

void tst_ScriptMenu::aLogIsClosedWhileItsScriptPrints()
{
    write(u"job.tcl"_s,
          "for {set i 0} {$i < 500} {incr i} {puts $i; if {$i % 100 == 50} hook}\nincr ::n");
    showLog->setChecked(true);
    QPointer<QDockWidget> first;
    int closed = 0;
    hook = [&] {
        QDockWidget *dock = logOf(u"job"_s);
        if (!dock)
            return;
        first = dock;
        ++closed;
        dock->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    };
    trigger(u"job.tcl"_s);
    QCOMPARE(count(), 1);
    QVERIFY(closed >= 1);
    QTRY_VERIFY(!first);
    hook = [] {}; // the next run has a log again
    trigger(u"job.tcl"_s);
    QVERIFY(logOf(u"job"_s));
    logOf(u"job"_s)->close();
    QTRY_VERIFY(!logOf(u"job"_s));
}

void tst_ScriptMenu::errorsShow()
{
    write(u"job.tcl"_s, "error {it broke}");
    showLog->setChecked(true);
    trigger(u"job.tcl"_s);
    QCOMPARE(priorityMessages().constLast(),
             u"Script execution completed with an error, see the log for details"_s);
    QVERIFY(QtclConsole::getInstance(nullptr, QString())
                ->toPlainText()
                .endsWith(u"error {it broke}\nit broke\nmorvalen > "_s));
    QVERIFY(logOf(u"job"_s)->isVisible());
    logOf(u"job"_s)->close();
    QTRY_VERIFY(!logOf(u"job"_s));
}

void tst_ScriptMenu::aFolderThatWasGoneIsFollowedAgain()
{
    const QString folder = session.filePath(u"Scripts"_s);
    QVERIFY(QDir(session.path()).rename(u"Scripts"_s, u"Elsewhere"_s));

    QVERIFY(QDir(session.path()).mkdir(u"Scripts"_s));
    Q_EMIT menu->aboutToShow();
    write(u"new.tcl"_s, "incr ::n");
    trigger(u"new.tcl"_s);
    QCOMPARE(count(), 1);
}

TEST_CLASS(tst_ScriptMenu)
#include "tst_ScriptMenu.moc"
