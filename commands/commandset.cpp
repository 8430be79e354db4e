#include "commands/commandset.h"

#include "commands/commands.h"
#include "commands/manuals.h"

namespace commands {

namespace {

// To add a command:
//   1. declare its procedure in commands/commands.h and write it in a source file of its own, which
//      commands/CMakeLists.txt lists; name it in tests/layout/exports.txt;
//   2. if it has subcommands, declare its manual in commands/manuals.h and define it beside its
//      tables;
//   3. add its row to commands/commandset.cpp, here, at the place where it is to be registered, and
//      the same to the expected tables in tests/commands/tst_CommandSet.cpp and
//      tests/scripting/tst_TclScriptManager.cpp;
//   4. write its page docs/commands/WORD.md, name it in docs/commands/README.md and in
//      app/morvalen.qrc;
//   5. write its test tests/commands/tst_WORD.cpp and name it in tests/commands/CMakeLists.txt;
//   6. call every subcommand in a script below tests/transcripts/WORD and let the program write the
//      text beside it: tst_Transcripts --renew;
//   7. add calls of it to tests/fuzz/commands.cpp, and its answers to hosts that leave things out
//      to tests/package/least/nothing.txt, tests/package/least/design.txt,
//      tests/package/least/file.txt, tests/package/least/build.txt,
//      tests/package/least/manager.txt, tests/package/least/factory.txt,
//      tests/package/least/window.txt and tests/package/least/main.cpp.
// tst_CommandSet, tst_Transcripts and tst_TclScriptManager fail while one of these is missing, and
// tst_CommandSet when some other file comes to list the commands.
constexpr Command rows[] = {
    {"log", LogQtiMessage, "Logs a system wide message"},
    {"logp", LogQtiPriorityMessage, "Logs a priority message"},
    {"overview", CallOverview, "Provides an overview of current application status."},
    {"project", CallProject, "Operations to control projects", &projectManual},
    {"designs", CallDesigns, "Operations on open designs.", &designsManual},
    {"design", CallDesign, "Operations on the active design.", &designManual},
    {"files", CallFiles, "Operations on files in the active design.", &filesManual},
    {"sfile", CallFile, "Operations on the active file in the active design.", &fileManual},
    {"folders", CallFolders, "Operations on folders in the active design.", &foldersManual},
    {"sfolder", CallFolder, "Operations on the active folder in the active design.", &folderManual},
    {"properties", CallProperties, "Operations on design parameters in the active design.",
     &propertiesManual},
    {"sproperty", CallProperty, "Operations on the active design parameters in the active design.",
     &propertyManual},
    {"builds", CallBuilds, "Operations on build configurations in the active design.",
     &buildsManual},
    {"build", CallBuild, "Operations on the active build configuration in the active design.",
     &buildManual},
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
