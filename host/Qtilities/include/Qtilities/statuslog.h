#pragma once

#include <Qtilities/Logger.h>
#include <Qtilities/Status.h>

namespace Qtilities::Logging {

// The one way from a status into the log, for operations whose caller cannot take it: each remark
// is logged, then the sentence of a failure. The answer is whether the status is ok. A failure
// without a sentence is not logged.
QTILITIES_EXPORT bool logStatus(const Core::Status &status,
                                Logger::MessageType failureType = Logger::Error);

} // namespace Qtilities::Logging
