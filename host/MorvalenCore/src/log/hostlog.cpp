#include "log/hostlog.h"

#include <Qtilities/Logger.h>

using Qtilities::Logging::Logger;

namespace MorvalenCore {

void logInfo(const QString &text) { Logger::instance()->logMessage({}, Logger::Info, text); }

void logWarning(const QString &text) { Logger::instance()->logMessage({}, Logger::Warning, text); }

void logError(const QString &text) { Logger::instance()->logMessage({}, Logger::Error, text); }

} // namespace MorvalenCore
