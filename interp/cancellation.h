#pragma once

#include <tcl.h>

// Tcl's cancellation of an evaluation, from its beginning to its end.
namespace cancellation {

// The result of what is cancelled.
inline constexpr const char *message = "Script stopped";

// Unwinds what the interpreter and its children evaluate, past every "catch", with the error
// "Script stopped", as soon as Tcl is at a safe point.
void cancel(Tcl_Interp *interp);

// Ends a cancellation where it has unwound what it was meant for, also one that came too late to
// have an effect: Tcl itself lets it go on until nothing is evaluated any more, and in children for
// good.
void clear(Tcl_Interp *interp);

} // namespace cancellation
