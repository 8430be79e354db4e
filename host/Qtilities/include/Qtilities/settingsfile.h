#pragma once

#include <Qtilities/QtilitiesExport.h>
#include <Qtilities/Status.h>

#include <QString>

namespace Qtilities::Core {

// To be called before QSettings opens a file of settings, which it would write over when it could
// not read it. What is no file of settings is renamed, so that nothing in it is lost, and a remark
// says where it is; a new one can then be written. Fails when the settings can neither be read
// nor put aside.
QTILITIES_EXPORT Status secureSettingsFile(const QString &fileName);

} // namespace Qtilities::Core
