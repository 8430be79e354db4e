#pragma once

#include <tcl.h>

// Where exceptions of command procedures end: Tcl's frames are C, and one that passes through them
// leaves the interpreter, and whoever waits for it, in the middle of things.
namespace exceptionborder {

// Makes a command of the string form answer with TCL_ERROR and a text when its procedure throws.
// The procedure and its client data stay what they are, also to who asks Tcl for them.
void guard(Tcl_Command command);

} // namespace exceptionborder
