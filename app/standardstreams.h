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

// Writes a text, with a line feed unless it ends with one, to Tcl's standard output. False when it
// cannot be written.
bool printToTcl(const QString &text);

// Writes a text, with a line feed unless it ends with one. False when it cannot be written.
bool print(const QString &text);
void complain(const QString &text);

} // namespace standardstreams
