#include "commands/commandset.h"

#include "commands/commands.h"
#include "commands/manuals.h"

namespace commands {

namespace {

// To add a command:
//   1. declare its procedure in commands.h and write it in a source file of its own, which
//      commands/CMakeLists.txt lists;
//   2. if it has subcommands, declare its manual in manuals.h and define it beside its tables;
//   3. add its row here, at the place where it is to be registered;
//   4. write its page docs/commands/WORD.md and its test tests/commands/tst_WORD.cpp.
// tst_CommandSet fails while one of these is missing.
constexpr Command rows[] = {
    {"log", LogQtiMessage, "Logs a system wide message"},
    {"logp", LogQtiPriorityMessage, "Logs a priority message"},
    {"designs", CallDesigns, "Operations on open designs.", &designsManual},
    {"quit", CallQuit, "Quit"},
};

} // namespace

std::span<const Command> commandSet() { return rows; }

void registerCommandSet(commandsManager &registry)
{
    for (const Command &row : rows)
        registry.registerFunction(row.word, row.procedure, row.help, nullptr);
}

} // namespace commands
