#pragma once

#include <MorvalenCore/IDesign.h>
#include <MorvalenCore/IDesignParser.h>
#include <MorvalenCore/MorvalenCoreExport.h>

namespace MorvalenCore {

class ITask;

// Builds designs up on disk.
class MORVALENCORE_EXPORT DesignConstructor
{
public:
    DesignConstructor() = delete;

    // Creates a working folder and links it to the design. An empty path stands for the folder
    // that the design has, which is completed on disk, or else for the usual place below the
    // designs path. Fails, with nothing left behind, when the folder cannot be used; a design does
    // not move.
    static Qtilities::Core::Status
    tryAssignPhysicalWorkingFolderToDesign(Interfaces::IDesign *design, const QString &path);

    // The same in the form that commands call; the log says why it failed. Options, task and
    // overwriting are there for that form only: there are no options, it takes no time that a task
    // would tell of, and nothing is ever overwritten.
    static bool
    assignPhysicalWorkingFolderToDesign(Interfaces::IDesign *design, const QString &path,
                                        Interfaces::IDesignParser::DesignParserOptions options,
                                        ITask *task, bool overwrite);
};

} // namespace MorvalenCore
