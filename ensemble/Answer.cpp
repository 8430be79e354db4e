#include "ensemble/Answer.h"

#include <Qtilities/Logger.h>

using Qtilities::Logging::Logger;

namespace ensemble {

Answer Answer::failure(const QByteArray &kind, const Value &result)
{
    Answer answer(result);
    answer.failureKind = kind;
    return answer;
}

Answer Answer::of(const Qtilities::Core::Status &status)
{
    for (const Qtilities::Core::Status::Remark &remark : status.remarks())
        Logger::instance()->logMessage(
            QString(), remark.isFailure ? Logger::Error : Logger::Warning, remark.text);
    return status.isOk() ? Answer() : failure(status.kindWord().toUtf8(), status.text());
}

int Answer::report(Tcl_Interp *interp) const
{
    // Events that were handled meanwhile may have left results of their own.
    Tcl_ResetResult(interp);
    Tcl_SetObjResult(interp, value.object());
    if (!isFailure())
        return TCL_OK;
    Tcl_SetErrorCode(interp, "MORVALEN", failureKind.constData(), nullptr);
    return TCL_ERROR;
}

} // namespace ensemble
