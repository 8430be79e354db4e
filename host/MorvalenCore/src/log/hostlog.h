#pragma once

#include <QString>

namespace MorvalenCore {

// Short ways to the application's log, to all engines.
void logInfo(const QString &text);
void logWarning(const QString &text);
void logError(const QString &text);

} // namespace MorvalenCore
