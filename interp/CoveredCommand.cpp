#include "interp/CoveredCommand.h"

void CoveredCommand::cover(Tcl_Interp *interp, const char *name, Tcl_ObjCmdProc *procedure)
{
    Tcl_CmdInfo info;
    if (!Tcl_GetCommandInfo(interp, name, &info) || info.objProc == procedure)
        return;
    auto *covered = new CoveredCommand(info);
    info.objProc = procedure;
    info.objClientData = covered;
    info.deleteProc = forget;
    info.deleteData = covered;
    Tcl_SetCommandInfo(interp, name, &info);
}

void CoveredCommand::forget(ClientData self)
{
    const auto *covered = static_cast<CoveredCommand *>(self);
    if (covered->original.deleteProc)
        covered->original.deleteProc(covered->original.deleteData);
    delete covered;
}
