#pragma once

#include <QString>

namespace MorvalenCore {

class Design;

// Writes a copy of a design to a new file in the backups folder and returns its path; empty, with
// the reason in *error, when it cannot be written.
QString backUp(Design &design, QString *error);

} // namespace MorvalenCore
