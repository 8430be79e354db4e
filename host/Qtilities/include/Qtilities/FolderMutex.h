#pragma once

#include <Qtilities/Descriptor.h>
#include <Qtilities/QtilitiesExport.h>

#include <QString>

namespace Qtilities::Core {

// A lock that programs of this kind take before they change files of a folder that they share. It
// leaves nothing on disk, and goes with the process that holds it.
class QTILITIES_EXPORT FolderMutex
{
public:
    // Waits a few seconds for another one to let go.
    explicit FolderMutex(const QString &folder);

    bool isTaken() const { return taken; }

private:
    Descriptor descriptor;
    bool taken = false;
};

} // namespace Qtilities::Core
