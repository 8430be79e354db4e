#pragma once

#include <QString>

#include <tcl.h>

// The process's own standard output and standard error.
namespace standardstreams {

// Opens the null device where one of the three standard descriptors is closed, so that no file of
// the program's takes its place. Call it first.
void openClosedOnes();

// Makes the process's own output and error the standard channels of Tcl's, in place of whatever
// the interpreter writes to: without a buffer, byte for byte.
void giveToTcl(Tcl_Interp *interp);

// The stream that a terminal shows; -1 when none does.
int shownByTerminal();
// Whether somebody can type, and see it.
bool haveTerminal();

// All of these write a text as a line: with a line feed unless it is empty or ends with one. False
// when it cannot be written.

// To Tcl's standard output, in the order of what scripts write.
bool printToTcl(const QString &text);

bool print(const QString &text);
bool printError(const QString &text);

} // namespace standardstreams
