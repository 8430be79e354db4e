#pragma once

#include <tcl.h>

class QtclConsole;

// Tcl's standard output and standard error as channels that show their text in the console. They
// are write-only and unbuffered: puts hands over a text and its line feed in two calls. Each
// channel shows the text of the first call and swallows that of the second, and so on; it counts
// calls and does not look at contents. A console that gathers whole lines takes every text instead.
namespace tclchannels {

// Makes the two channels the interpreter's and the process's standard channels. The console is
// guarded: once it is gone the channels still take text, and show it nowhere.
void install(Tcl_Interp *interp, QtclConsole *console);

} // namespace tclchannels

// Results: toWrite, always; the error code becomes 0.
// Side effects: every other call shows the text as a paragraph of the console and lets the console
// emit it. The text ends at its first zero byte, or after toWrite bytes.
int ConsoleOutput(ClientData instanceData, const char *buf, int toWrite, int *errorCodePtr);
int ConsoleError(ClientData instanceData, const char *buf, int toWrite, int *errorCodePtr);

// Results: 0.
// Side effects: none.
int closeProcedureForBothTcl_ChannelType(ClientData instanceData, Tcl_Interp *interp);

extern const Tcl_ChannelType consoleOutputChannelType;
extern const Tcl_ChannelType consoleErrorChannelType;
