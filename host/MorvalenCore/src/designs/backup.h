#pragma once

#include <MorvalenCore/IDesign.h>

#include <Qtilities/Status.h>

namespace MorvalenCore {

class Design;

// Whether nothing is left in a design that closing it would lose: saves it, or, where that cannot
// be done, writes a backup. The log says what went wrong.
bool saveOrBackUp(Interfaces::IDesign *design);

// Writes a copy of a design to a new file in the backups folder and returns its path.
Qtilities::Core::Result<QString> backUp(Design &design);

} // namespace MorvalenCore
