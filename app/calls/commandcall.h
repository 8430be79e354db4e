#pragma once

#include "interp/commandsManager.h"

#include <QStringList>

// What a command answered.
struct CommandAnswer
{
    bool succeeded = false;
    QString text;
    // What the host told the command, a line each; the command has its own words for it.
    QStringList reasons;
};

// Calls the procedure of a command as a script does; the first argument is the command's. The
// console neither shows nor records it. For the window, so that what it does is what scripts do;
// not to be called while a command runs.
CommandAnswer callCommand(commandsManager::CommandProc procedure, const QStringList &arguments);
