#pragma once

#include "ensemble/Value.h"

#include <Qtilities/Status.h>

namespace ensemble {

// What kind of failure it was: the second word of the error code, behind MORVALEN. The host's own
// failures have the words of its Status beside these.
namespace kind {
inline constexpr const char *usage = "usage"; // The call is not understood.
inline constexpr const char *missing = "not_found"; // What it names is not there.
inline constexpr const char *exists = "already_exists";
inline constexpr const char *invalid = "invalid_argument"; // A value is no good.
inline constexpr const char *readOnly = "read_only";
inline constexpr const char *modified = "conflict"; // It would lose unsaved changes.
inline constexpr const char *refused = "refused"; // The design refuses it.
inline constexpr const char *failed = "failed"; // It was tried and did not succeed.
} // namespace kind

// What a call came to: a value, or a failure with its kind and what it says.
class [[nodiscard]] Answer
{
public:
    // The empty value.
    Answer() = default;
    Answer(const Value &result) : value(result) { }
    Answer(const QString &text) : value(text) { }

    static Answer failure(const QByteArray &kind, const Value &result);
    static Answer failure(const QByteArray &kind, const QString &text)
    {
        return failure(kind, Value(text));
    }

    // What an operation of the host came to: nothing, or its failure. What it remarks goes to the
    // log.
    static Answer of(const Qtilities::Core::Status &status);

    bool isFailure() const { return !failureKind.isEmpty(); }

    // Makes it the interpreter's result, the only one, and a failure its error code. Results: the
    // return code.
    int report(Tcl_Interp *interp) const;

private:
    Value value;
    QByteArray failureKind;
};

} // namespace ensemble
