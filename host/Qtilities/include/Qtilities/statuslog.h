#pragma once

#include <Qtilities/Logger.h>
#include <Qtilities/Status.h>

namespace Qtilities::Logging {

// The one way from a status into the log, for operations whose caller cannot take it: each remark
// is logged, then the sentence of a failure. The answer is whether the status is ok. A failure
// without a sentence is not logged.
QTILITIES_EXPORT bool logStatus(const Core::Status &status,
                                Logger::MessageType failureType = Logger::Error);

// Gathers the statuses that logStatus() logs in this thread while it lives, for a caller of what
// cannot return them, such as a command. Of several all gather, and the last one made goes first.
class QTILITIES_EXPORT StatusCollector
{
public:
    StatusCollector();
    ~StatusCollector();
    Q_DISABLE_COPY_MOVE(StatusCollector)

    const QList<Core::Status> &statuses() const { return gathered; }

private:
    friend bool logStatus(const Core::Status &status, Logger::MessageType failureType);

    StatusCollector *outer;
    QList<Core::Status> gathered;
};

} // namespace Qtilities::Logging
