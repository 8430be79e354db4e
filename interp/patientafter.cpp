#include "interp/patientafter.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace {

constexpr qint64 slice = 20; // milliseconds

struct Original
{
    Tcl_ObjCmdProc *proc;
    ClientData clientData;
    Tcl_CmdDeleteProc *deleteProc;
    ClientData deleteData;
};

// Results: TCL_OK when the time is over, an error when the evaluation is to end before.
// Side effects: those of Tcl's asynchronous handlers.
int sleepThrough(Tcl_Interp *interp, qint64 milliseconds)
{
    const QDeadlineTimer end(std::max<qint64>(milliseconds, 0), Qt::PreciseTimer);
    for (;;) {
        if (Tcl_AsyncReady() && Tcl_AsyncInvoke(interp, TCL_OK) != TCL_OK)
            return TCL_ERROR;
        if (Tcl_Canceled(interp, TCL_LEAVE_ERR_MSG) == TCL_ERROR)
            return TCL_ERROR;
        if (Tcl_LimitReady(interp) && Tcl_LimitCheck(interp) != TCL_OK)
            return TCL_ERROR;
        if (end.hasExpired())
            return TCL_OK;
        const qint64 left = end.remainingTimeNSecs() / 1'000'000 + 1;
        Tcl_Sleep(int(std::min(left, slice)));
    }
}

int after(ClientData data, Tcl_Interp *interp, int objc, Tcl_Obj *const *objv)
{
    const auto *original = static_cast<Original *>(data);
    Tcl_WideInt milliseconds = 0;
    if (objc == 2 && Tcl_GetWideIntFromObj(nullptr, objv[1], &milliseconds) == TCL_OK)
        return sleepThrough(interp, milliseconds);
    return original->proc(original->clientData, interp, objc, objv);
}

void forget(ClientData data)
{
    const auto *original = static_cast<Original *>(data);
    if (original->deleteProc)
        original->deleteProc(original->deleteData);
    delete original;
}

} // namespace

void makeAfterPatient(Tcl_Interp *interp)
{
    Tcl_CmdInfo info;
    if (!Tcl_GetCommandInfo(interp, "::after", &info) || info.objProc == after)
        return;
    auto *original =
        new Original {info.objProc, info.objClientData, info.deleteProc, info.deleteData};
    info.objProc = after;
    info.objClientData = original;
    info.deleteProc = forget;
    info.deleteData = original;
    Tcl_SetCommandInfo(interp, "::after", &info);
}
