#include "interp/QtNotifier.h"

#include "interp/notifierprocs.h"
#include "interp/NotifierState.h"
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
    if (!notifier || notifier->resting)
        return;
    notifier->resting = true;
    if (!notifier->timerActive)
        notifier->timer->stop();
}
