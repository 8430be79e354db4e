#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QString>

namespace Qtilities::Core {

// The folder of the library that holds the code or the constant at that address, or of the program
// when it does: canonical, or empty when that cannot be told.
QTILITIES_EXPORT QString codeFolder(const void *address);

} // namespace Qtilities::Core
