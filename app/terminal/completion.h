#pragma once

#include "app/terminal/LineEditor.h"

#include <tcl.h>

// What the terminal completes: names of commands, the words behind those of the application, and
// names of files.
namespace completion {

LineEditor::Completions complete(Tcl_Interp *interp, const QString &text);

} // namespace completion
