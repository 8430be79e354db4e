// A process that starts, waits and ends in the way its argument names; tst_NotifierProcess reads
// its output and its exit status.
#include "interp/commandsManager.h"
#include "interp/NotifierState.h"
#include "interp/QtNotifier.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <map>
#include <string>

namespace {

void eval(const char *script)
{
    Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
    if (Tcl_EvalEx(interp, script, -1, TCL_EVAL_GLOBAL) != TCL_OK)
        std::printf("error: %s\n", Tcl_GetStringResult(interp));
}

int leave(void *, Tcl_Interp *, int, const char **)
{
    QCoreApplication::quit();
    return TCL_OK;
}

void makeInterpreter()
{
    commandsManager::getInstance(nullptr)->registerFunction("leave", leave, "ends the loop",
                                                            nullptr);
}

// Handlers and timers that are still there when the process ends.
void leaveThingsBehind()
{
    eval(
        "lassign [chan pipe] r w; fileevent $r readable {gets $r}; fileevent $w writable {incr n}; "
        "after 100000 {puts wrong}; after 20 leave");
}

int notifierFirst(int &argc, char **argv)
{
    QApplication app(argc, argv);
    Qtk_InitNotifier(&app);
    makeInterpreter();
    eval("after 5 {puts served; leave}");
    return QApplication::exec();
}

int interpreterFirst(int &argc, char **argv)
{
    QApplication app(argc, argv);
    makeInterpreter();
    Qtk_InitNotifier(&app);
    eval("after 5 {puts served; leave}");
    return QApplication::exec();
}

int timersBeforeTheNotifier(int &argc, char **argv)
{
    QApplication app(argc, argv);
    makeInterpreter();
    eval("after 5 {puts served; leave}");
    Qtk_InitNotifier(&app);
    return QApplication::exec();
}

int notifierBeforeTheApplication(int &argc, char **argv)
{
    Qtk_InitNotifier(nullptr);
    QApplication app(argc, argv);
    makeInterpreter();
    eval("after 5 {puts served; leave}");
    return QApplication::exec();
}

int notifierWithoutAnInterpreter(int &argc, char **argv)
{
    QApplication app(argc, argv);
    Qtk_InitNotifier(&app);
    QTimer::singleShot(20, &app, &QCoreApplication::quit);
    return QApplication::exec();
}

int returnFromMain(int &argc, char **argv)
{
    QApplication app(argc, argv);
    makeInterpreter();
    Qtk_InitNotifier(&app);
    leaveThingsBehind();
    const int code = QApplication::exec();
    eval("puts [expr {$n > 0}]");
    return code;
}

int exitOfTclInACallback(int &argc, char **argv)
{
    QApplication app(argc, argv);
    makeInterpreter();
    Qtk_InitNotifier(&app);
    Qtk_LetNotifierRest();
    leaveThingsBehind();
    eval("puts -nonewline buffered; lassign [chan pipe] a b; puts $b x; flush $b; "
         "fileevent $a readable {exit 3}");
    return QApplication::exec();
}

int exitOfTclInAWait(int &argc, char **argv)
{
    QApplication app(argc, argv);
    makeInterpreter();
    Qtk_InitNotifier(&app);
    leaveThingsBehind();
    eval("puts waiting; after 10 {exit 4}; vwait forever");
    return 0;
}

int tclAfterTheApplication(int &argc, char **argv)
{
    {
        QApplication app(argc, argv);
        makeInterpreter();
        Qtk_InitNotifier(&app);
        Qtk_LetNotifierRest();
        leaveThingsBehind();
        QApplication::exec();
    }
    eval("close $r; foreach id [after info] {after cancel $id}; puts closed");
    Tcl_Exit(5);
    return 0;
}

int installedWhileExiting(int &argc, char **argv)
{
    QApplication app(argc, argv);
    makeInterpreter();
    Tcl_CreateExitHandler(
        [](ClientData) {
            Qtk_InitNotifier(nullptr);
            std::printf("installed %d\n", notifier != nullptr);
        },
        nullptr);
    Tcl_Exit(0);
    return 1;
}

using Main = int (*)(int &, char **);

const std::map<std::string, Main> mains = {
    {"notifier-first", notifierFirst},
    {"interpreter-first", interpreterFirst},
    {"timers-before-the-notifier", timersBeforeTheNotifier},
    {"notifier-before-the-application", notifierBeforeTheApplication},
    {"notifier-without-an-interpreter", notifierWithoutAnInterpreter},
    {"return-from-main", returnFromMain},
    {"exit-of-tcl-in-a-callback", exitOfTclInACallback},
    {"exit-of-tcl-in-a-wait", exitOfTclInAWait},
    {"tcl-after-the-application", tclAfterTheApplication},
    {"installed-while-exiting", installedWhileExiting},
};

} // namespace

int main(int argc, char *argv[])
{
    const auto chosen = mains.find(argc > 1 ? argv[1] : "");
    return chosen == mains.end() ? 99 : chosen->second(argc, argv);
}
