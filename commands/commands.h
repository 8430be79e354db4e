#pragma once

#include "interp/export.h"

#include <tcl.h>

// The procedures of the application commands. Each takes its client data unused, clears the
// interpreter's result, appends one text and returns TCL_OK or TCL_ERROR. commandset.h lists them
// with the words under which scripts call them.

TCLSCRIPTING_EXPORT int LogQtiMessage(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int LogQtiPriorityMessage(ClientData, Tcl_Interp *interp, int argc,
                                              const char **argv);
TCLSCRIPTING_EXPORT int CallOverview(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallProject(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallDesigns(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallDesign(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallFiles(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallFile(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallFolders(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallFolder(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallProperties(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallProperty(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallBuilds(ClientData, Tcl_Interp *interp, int argc, const char **argv);
TCLSCRIPTING_EXPORT int CallBuild(ClientData, Tcl_Interp *interp, int argc, const char **argv);

// Ends the process and does not return, except when it is called with too many arguments.
TCLSCRIPTING_EXPORT int CallQuit(ClientData, Tcl_Interp *interp, int argc, const char **argv);
