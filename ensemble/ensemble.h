#pragma once

#include <QString>

#include <tcl.h>

namespace ensemble {

// Adds the command "morvalen" to an interpreter: what the application says to scripts beyond its
// registered commands. It is not in the registry. Replaces a command of that name.
void create(Tcl_Interp *interp, const QString &folderOfCall);

} // namespace ensemble
