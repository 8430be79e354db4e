#pragma once

#include "interp/export.h"

#include <QByteArray>
#include <QString>

#include <tcl.h>

// Texts on their way between Qt and Tcl. Tcl's strings are UTF-8 in which a zero character is the
// two bytes C0 80 and a character beyond the basic plane stands as two encoded surrogates; both
// directions keep every character, single surrogates too.
namespace tcltext {

// The text of a zero-terminated string of Tcl's; a null pointer is the null text. The
// bytes may be any: one that is no UTF-8 stands for the character of its value, as in Tcl.
TCLSCRIPTING_EXPORT QString fromTcl(const char *text);

// The same for the first length bytes.
TCLSCRIPTING_EXPORT QString fromTcl(const char *text, qsizetype length);

// The bytes to hand to Tcl for text.
TCLSCRIPTING_EXPORT QByteArray toTcl(const QString &text);

// Whether fromTcl(tclText) is text; nothing is converted where tclText is ASCII.
TCLSCRIPTING_EXPORT bool equals(const QString &text, const char *tclText);

// Appends text to the interpreter's result.
TCLSCRIPTING_EXPORT void appendResult(Tcl_Interp *interp, const QString &text);

// The interpreter's result.
TCLSCRIPTING_EXPORT QString result(Tcl_Interp *interp);

} // namespace tcltext
