#include "interp/patientafter.h"

#include "interp/CoveredCommand.h"
#include "interp/interruption.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace {

// Results: TCL_OK when the time is over, an error when the evaluation is to end before.
// Side effects: those of Tcl's asynchronous handlers.
int sleepThrough(Tcl_Interp *interp, qint64 milliseconds)
{
    const QDeadlineTimer end(std::max<qint64>(milliseconds, 0), Qt::PreciseTimer);
    for (;;) {
        if (endOrGoOn(interp) != TCL_OK)
            return TCL_ERROR;
        if (end.hasExpired())
            return TCL_OK;
        const qint64 left = end.remainingTimeNSecs() / 1'000'000 + 1;
        Tcl_Sleep(int(std::min<qint64>(left, longestSilence)));
    }
}

int after(ClientData data, Tcl_Interp *interp, int objc, Tcl_Obj *const *objv)
{
    Tcl_WideInt milliseconds = 0;
    if (objc == 2 && Tcl_GetWideIntFromObj(nullptr, objv[1], &milliseconds) == TCL_OK)
        return sleepThrough(interp, milliseconds);
    return static_cast<CoveredCommand *>(data)->call(interp, objc, objv);
}

} // namespace

void makeAfterPatient(Tcl_Interp *interp) { CoveredCommand::cover(interp, "::after", after); }
