#pragma once

#include "interp/export.h"

#include <QList>
#include <QStringList>

// What the application commands tell about themselves, for programs that show it elsewhere than in
// the console. It comes from the very tables that "help" and the usage texts are made of.
namespace commands {

// One call of a command, as its usage text has it, and what it does.
struct ManualCall
{
    QString call;
    QString does;
};

struct CommandManual
{
    QString word;
    // The command's line in the listing of "help".
    QString help;
    // In the order of the usage text; empty for a command without subcommands.
    QList<ManualCall> calls;
};

// The subcommands that may come next in a call of an application command, of which these words are
// there already; none for any other command. Those that the usage text leaves out are among them.
TCLSCRIPTING_EXPORT QStringList nextWords(const QStringList &words);

// The manuals of all application commands, in the order of registration.
TCLSCRIPTING_EXPORT QList<CommandManual> commandManuals();

} // namespace commands
