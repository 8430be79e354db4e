#include "interp/QtNotifier.h"

#include "interp/commandsManager.h"
#include "interp/GuiAlert.h"
#include "interp/notifierprocs.h"
#include "interp/NotifierState.h"
#include "interp/patientafter.h"
#include "interp/patientreading.h"
#include "interp/restingprocs.h"
#include "interp/ScriptRuns.h"
#include "interp/servicemode.h"
#include "interp/TclTimeNotifier.h"

#include <QTimer>

#include <tcl.h>

// Exported by Tcl's library, declared in none of its public headers.
extern "C" int TclInExit();

void Qtk_InitNotifier(QApplication *app)
{
    if (TclInExit())
        return;
    Tcl_NotifierProcs procs = {};
    procs.setTimerProc = SetTimer;
    procs.waitForEventProc = WaitForEvent;
    procs.createFileHandlerProc = CreateFileHandler;
    procs.deleteFileHandlerProc = DeleteFileHandler;
    procs.finalizeNotifierProc = FinalizeNotifier;
    Tcl_SetNotifier(&procs);
    Tcl_CreateExitHandler(NotifierExitHandler, nullptr);
    if (!notifier) {
        static NotifierState state(app);
        notifier = &state;
    }
    servicemode::notifierIsInstalled();
    // A script may have set timers before there was anything to start them.
    if (servicemode::isOn())
        notifier->timeNotifier->serveLater();
}

void Qtk_LetNotifierRest()
{
    if (!notifier || TclInExit())
        return;
    if (!notifier->alert)
        notifier->alert = std::make_unique<GuiAlert>();
    Tcl_NotifierProcs procs = restingProcs();
    Tcl_SetNotifier(&procs);
    notifier->resting = true;
    if (!notifier->timerActive)
        notifier->timer->stop();
}

void Qtk_KeepWindowAlive(std::function<void()> pass)
{
    if (!notifier || !notifier->resting || ScriptRuns::instance())
        return;
    Tcl_Interp *interp = commandsManager::getInstance(nullptr)->interp;
    makeAfterPatient(interp);
    makeReadingPatient(interp);
    auto *runs = new ScriptRuns(interp, std::move(pass));
    // Its thread must not outlive Tcl.
    Tcl_CreateExitHandler([](ClientData client) { delete static_cast<ScriptRuns *>(client); },
                          runs);
}
