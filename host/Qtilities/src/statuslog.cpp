#include <Qtilities/statuslog.h>

namespace Qtilities::Logging {

namespace {

thread_local StatusCollector *innermost = nullptr;

} // namespace

bool logStatus(const Core::Status &status, Logger::MessageType failureType)
{
    for (StatusCollector *collector = innermost; collector; collector = collector->outer)
        collector->gathered.append(status);
    Logger *const log = Logger::instance();
    for (const QList remarks = status.remarks(); const Core::Status::Remark &remark : remarks)
        log->logMessage({}, remark.isFailure ? Logger::Error : Logger::Warning, remark.text);
    if (!status.text().isEmpty())
        log->logMessage({}, failureType, status.text());
    return status.isOk();
}

StatusCollector::StatusCollector() : outer(innermost) { innermost = this; }

StatusCollector::~StatusCollector() { innermost = outer; }

} // namespace Qtilities::Logging
