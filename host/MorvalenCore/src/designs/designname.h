#pragma once

#include <QString>

namespace MorvalenCore {

// What is wrong with a name for a design, in one sentence; empty when nothing is. A name is a
// letter or "_", followed by letters, digits, "_", "-" or ".".
QString designNameRefusal(const QString &name);

} // namespace MorvalenCore
