#pragma once

#include <tcl.h>

// Gives a command procedure whose words are not const the type that Tcl 8.6 wants, without a cast
// of a function pointer:
//     registry->registerFunction("design", commandProc<&CallDesign>, "...", nullptr);
// The procedure must not write to its words. A procedure with const words needs no adapter.
template <int (*procedure)(void *, Tcl_Interp *, int, char **)>
int commandProc(ClientData clientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return procedure(clientData, interp, argc, const_cast<char **>(argv));
}
