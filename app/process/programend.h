#pragma once

#include <functional>

#include <tcl.h>

// How the program ends: by its own will, by "quit", or by Tcl's "exit".
namespace programend {

// Before anything of Tcl: the handlers of its exit run in the order opposite to their making.
void begin();

// Prepares an interpreter that has the application's commands: typing "exit" ends the program as
// "quit" does, and Tcl's "exit 0" saves as a good end does. An "exit" on another thread ends that
// thread, and the program on the GUI thread as soon as Tcl is between two commands there.
void prepare(Tcl_Interp *interp);

// What the window does before Tcl's "exit", and so "quit", ends the process; an empty function for
// nothing. There is no way back: it must not stop the end.
void setExitHook(std::function<void()> hook);

// Saves what closing the program saves. False when a design that has a component file could not be
// saved; the log has the reason.
bool save();

// Ends the process with the status, as it is, after Tcl's exit handlers have run.
[[noreturn]] void leave(int status);

} // namespace programend
