#include "commands/Outcome.h"

using namespace Qt::Literals::StringLiterals;

namespace commands {

Outcome Outcome::truth(bool value) { return ok(value ? u"true"_s : u"false"_s); }

Outcome Outcome::found(bool value) { return value ? truth(true) : error(u"false"_s); }

int Outcome::report(Tcl_Interp *interp) const
{
    // The application may have handled events while the command ran, and scripts run by those
    // leave results of their own.
    Tcl_ResetResult(interp);
    tcltext::appendResult(interp, answer.value_or(QString()));
    return code;
}

} // namespace commands
