#pragma once

#include <MorvalenCore/IDesign.h>

#include <Qtilities/Status.h>

namespace MorvalenCore {

class Design;

// Writes a copy of a design to a new file in the backups folder and returns its path.
Qtilities::Core::Result<QString> backUp(Design &design);

// Ok when nothing is left in a design that closing it would lose: it is saved, or, where that
// cannot be done, in a backup, which a remark tells of.
Qtilities::Core::Status saveOrBackUp(Interfaces::IDesign *design);

} // namespace MorvalenCore
