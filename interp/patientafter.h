#pragma once

#include <tcl.h>

// Tcl's "after MILLISECONDS", which looks only twice a second whether anything wants the
// interpreter. From now on it looks often enough for a window to live, and for a stop to be felt.
// All else of the command is Tcl's own. Nothing happens when the interpreter has no "after".
void makeAfterPatient(Tcl_Interp *interp);
