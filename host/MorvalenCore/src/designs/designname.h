#pragma once

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

// Whether a design can have a name: a letter or "_", followed by letters, digits, "_", "-" or ".".
Qtilities::Core::Status checkSpelling(const QString &designName);

} // namespace MorvalenCore
