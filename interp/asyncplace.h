#pragma once

#include <tcl.h>

// From where Tcl asks its asynchronous handlers.
//
// Tcl 8.6 asks at the end of each command, and every few instructions of compiled code. There it
// takes the return code of the handlers for that of the instruction before: when that has just
// caught an error, the code is TCL_ERROR still, and handed back it raises the error once more, with
// the catch half done; the stack is wrong from then on.
namespace asyncplace {

// To be called before isCaughtError, with the interpreter at rest.
void learn(Tcl_Interp *interp);

// Where Tcl has asked the handler's procedure that calls this.
void *ofQuestion();

// Whether the code with which a procedure was asked there is that of an error that was caught
// already.
bool isCaughtError(int code, const void *place);

// What such a handler returns instead: neither an error nor success. "catch" answers it. ErrorWatch
// sees to it that this is hardly ever needed.
constexpr int caughtError = 5;

} // namespace asyncplace
