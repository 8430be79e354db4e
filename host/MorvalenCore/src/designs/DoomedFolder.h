#pragma once

#include "disk/removal.h"

#include <MorvalenCore/IDesign.h>

#include <Qtilities/Status.h>

namespace MorvalenCore {

// The working folder of a design that is about to be closed, to be deleted once it is. What is
// protected is looked up beforehand, as long as the design is open.
class DoomedFolder
{
public:
    // The folder must lie below the designs folder.
    DoomedFolder(const Interfaces::IDesign &design, const QString &designsFolder);

    // Whether the guard lets it go, so that nothing in it needs to be saved.
    bool mayGo() const { return checkDeletion(folder, limits).isOk(); }

    Qtilities::Core::Status remove() const;

private:
    QString folder;
    DeletionLimits limits;
};

} // namespace MorvalenCore
