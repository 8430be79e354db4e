#pragma once

#include "interp/export.h"

QT_BEGIN_NAMESPACE
class QApplication;
QT_END_NAMESPACE

// Lets Qt's event loop drive Tcl's events: "after", "fileevent" and "vwait" work while the
// application's windows live. A host calls Qtk_InitNotifier once, on the GUI thread, before scripts
// that use them run; a file handler that Tcl made earlier stays with Tcl's own notifier. The hooks
// are process-wide, so Tcl may be used on the GUI thread only.
//
// By itself this gives a notifier that never blocks: "vwait" spins over passes of Qt's event loop,
// the timer goes on firing at its last interval when Tcl has cleared it, and "update" does not
// return. Qtk_LetNotifierRest, which most hosts want to call next, changes just that.

// Replaces Tcl's notifier. app is only remembered and may be null. Does nothing once Tcl's exit
// handlers run. A later call installs the procedures anew and keeps the first call's state.
TCLSCRIPTING_EXPORT void Qtk_InitNotifier(QApplication *app);

// From now on a wait blocks in Qt's event loop until something happens or its time is over, a poll
// that found nothing says so, and a timer that Tcl cleared is stopped. Needs Qtk_InitNotifier
// before it, and does nothing otherwise.
TCLSCRIPTING_EXPORT void Qtk_LetNotifierRest();
