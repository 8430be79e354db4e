#pragma once

#include <tcl.h>

// Tcl's "gets" and "read", which stand still for as long as a channel that blocks has nothing to
// read. From now on they look often enough, where the channel is a pipe or a socket, for a window
// to live, and for a stop to be felt; what "gets" has not handed out then stays to be read. All
// else of the commands is Tcl's own. Standard input stays as it is: other processes may share it.
void makeReadingPatient(Tcl_Interp *interp);
