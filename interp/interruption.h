#pragma once

#include <tcl.h>

// To be asked again and again by a command that waits: calls the asynchronous handlers of Tcl's
// that are marked, and returns TCL_ERROR, with a message in the result, when the evaluation is to
// end.
int endOrGoOn(Tcl_Interp *interp);

// For how long, in milliseconds, such a command may wait in between: often enough for a window to
// live, and for a stop to be felt.
constexpr int longestSilence = 20;
