#pragma once

#include <Qtilities/Status.h>

// A session folder for a run that has no home. When the process ends, what the program itself keeps
// there goes; a folder that holds anything else stays.
class TemporarySession
{
public:
    // The folder's path.
    static Qtilities::Core::Result<QString> make();
};
