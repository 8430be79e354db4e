#pragma once

#include <QString>

#include <functional>

#include <tcl.h>

namespace ensemble {

// What was done so far as commands, for the journal's subcommand; nothing until it is set.
using JournalText = std::function<QString()>;
void setJournal(JournalText text);

// Adds the command "morvalen" to an interpreter: what the application says to scripts beyond its
// registered commands. It is not in the registry. Replaces a command of that name.
void create(Tcl_Interp *interp, const QString &folderOfCall);

} // namespace ensemble
