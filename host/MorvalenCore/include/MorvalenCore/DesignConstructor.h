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

    // Creates a working folder and links it to the design; an empty path stands for the usual
    // place, below the designs path. Progress goes to the task unless it is null. False, with
    // nothing left behind, when the folder cannot be used.
    static bool
    assignPhysicalWorkingFolderToDesign(Interfaces::IDesign *design, const QString &path,
                                        Interfaces::IDesignParser::DesignParserOptions options,
                                        ITask *task, bool overwrite);
};

} // namespace MorvalenCore
