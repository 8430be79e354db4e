#pragma once

#include <Qtilities/QtilitiesExport.h>
#include <Qtilities/Status.h>

#include <QString>

namespace Qtilities::Core {

// Makes a folder where there is none, and those above it. The sentence of a failure is a reason
// only, that of the system.
QTILITIES_EXPORT Status makeFolder(const QString &path);

} // namespace Qtilities::Core
