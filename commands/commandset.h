#pragma once

#include "interp/commandsManager.h"

#include <span>

namespace commands {

struct Manual;

// One application command: the word under which scripts call it, its procedure, its line in the
// listing of "help", and its manual; a command without subcommands has none.
struct Command
{
    const char *word;
    commandsManager::CommandProc procedure;
    const char *help;
    const Manual *manual = nullptr;
};

// All application commands in the order in which they are registered.
std::span<const Command> commandSet();

// Adds all application commands to the registry.
void registerCommandSet(commandsManager &registry);

} // namespace commands
