#pragma once

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

// Short ways to the application's log, to all engines.
void logInfo(const QString &text);
void logWarning(const QString &text);
void logError(const QString &text);

// For operations that answer with a bool and an error text: whether the status is ok. When it is
// not, its sentence goes to *error, or to the log as a warning when error is null.
bool answer(const Qtilities::Core::Status &status, QString *error = nullptr);

// The same with a value; a default one on failure.
template <typename Value>
Value answer(const Qtilities::Core::Result<Value> &result, QString *error = nullptr)
{
    return answer(result.status(), error) ? result.value() : Value();
}

} // namespace MorvalenCore
