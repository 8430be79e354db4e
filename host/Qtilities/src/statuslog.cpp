#include <Qtilities/statuslog.h>

namespace Qtilities::Logging {

bool logStatus(const Core::Status &status, Logger::MessageType failureType)
{
    Logger *const log = Logger::instance();
    for (const Core::Status::Remark &remark : status.remarks())
        log->logMessage({}, remark.isFailure ? Logger::Error : Logger::Warning, remark.text);
    if (!status.text().isEmpty())
        log->logMessage({}, failureType, status.text());
    return status.isOk();
}

} // namespace Qtilities::Logging
