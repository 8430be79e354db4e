#pragma once

#include <tcl.h>

// A command of Tcl's own that another procedure stands before, and calls where it has nothing to
// add.
class CoveredCommand
{
public:
    // Puts a procedure before a command; its client data is the CoveredCommand, which lives as long
    // as the command. Nothing happens when the interpreter has no such command, or the procedure
    // stands there already.
    static void cover(Tcl_Interp *interp, const char *name, Tcl_ObjCmdProc *procedure);

    int call(Tcl_Interp *interp, int objc, Tcl_Obj *const *objv) const
    {
        return original.objProc(original.objClientData, interp, objc, objv);
    }

private:
    explicit CoveredCommand(const Tcl_CmdInfo &info) : original(info) { }
    static void forget(ClientData self);

    const Tcl_CmdInfo original;
};
