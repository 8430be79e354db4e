#pragma once

#include "interp/export.h"

#include <functional>

QT_BEGIN_NAMESPACE
class QApplication;
QT_END_NAMESPACE

// Lets Qt's event loop drive Tcl's events: "after", "fileevent" and "vwait" work while the
// application's windows live. A host calls Qtk_InitNotifier once, on the GUI thread, before it
// makes its TclScriptManager, whose start-up script may use them: a file handler that Tcl made
// earlier stays with Tcl's own notifier. When it comes later, the log warns.
//
// By itself this gives a notifier that never blocks: "vwait" spins over passes of Qt's event loop,
// the timer goes on firing at its last interval when Tcl has cleared it, and "update" does not
// return. Tcl may then be used on the GUI thread only, since the hooks are process-wide, and what
// another thread asks of the GUI thread (Tcl_AsyncMark, Tcl_ThreadAlert) waits for its next event.
// Qtk_LetNotifierRest, which most hosts want to call next, changes just that.

// Replaces Tcl's notifier. app is only remembered and may be null. Does nothing once Tcl's exit
// handlers run. A later call installs the procedures anew and keeps the first call's state.
TCLSCRIPTING_EXPORT void Qtk_InitNotifier(QApplication *app);

// From now on a wait blocks in Qt's event loop until something happens or its time is over, a poll
// that found nothing says so, and a timer that Tcl cleared is stopped. Every thread may use Tcl,
// each with a wait of its own, and wakes the others as Tcl promises. To be called on the GUI
// thread, after Qtk_InitNotifier, before other threads use Tcl; does nothing otherwise.
TCLSCRIPTING_EXPORT void Qtk_LetNotifierRest();

// From now on scripts neither freeze the host's windows nor run on when they are to stop: see
// ScriptRuns, which this makes. While a command runs, pass is called on the GUI thread, about every
// 50 ms, between two commands of the script; it is to process Qt's events, and to refuse those that
// would change what scripts work with. Tcl's own events are not served there. "after MILLISECONDS",
// and "gets" and "read" on pipes and sockets that block, become able to be stopped, and to let the
// passes come. Needs Qtk_LetNotifierRest before it, and does nothing otherwise; only the first call
// counts.
TCLSCRIPTING_EXPORT void Qtk_KeepWindowAlive(std::function<void()> pass);
