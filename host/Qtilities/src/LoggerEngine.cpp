#include <Qtilities/LoggerEngine.h>

namespace Qtilities::Logging {

LoggerEngine::LoggerEngine(const QString &name, QObject *parent) : QObject(parent)
{
    setObjectName(name);
}

LoggerEngine::~LoggerEngine() = default;

} // namespace Qtilities::Logging
