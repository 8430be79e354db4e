#include "interp/cancellation.h"

namespace cancellation {

namespace {

// An evaluation at the outermost level takes the cancellation with it when it substitutes a
// command.
void clearOne(Tcl_Interp *interp)
{
    constexpr int tries = 3;
    for (int i = 0; i < tries && Tcl_Canceled(interp, 0) != TCL_OK; ++i)
        Tcl_EvalEx(interp, "list []", -1, TCL_EVAL_GLOBAL);
}

void clearChildren(Tcl_Interp *interp);

void clearTree(Tcl_Interp *interp)
{
    Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    clearOne(interp);
    clearChildren(interp);
    Tcl_RestoreInterpState(interp, state);
}

// Nothing in C tells which there are.
void clearChildren(Tcl_Interp *interp)
{
    if (Tcl_EvalEx(interp, "::interp slaves", -1, TCL_EVAL_GLOBAL) != TCL_OK)
        return;
    Tcl_Obj *const names = Tcl_GetObjResult(interp);
    Tcl_IncrRefCount(names);
    int count = 0;
    Tcl_Obj **name = nullptr;
    if (Tcl_ListObjGetElements(nullptr, names, &count, &name) == TCL_OK) {
        for (int i = 0; i < count; ++i) {
            if (Tcl_Interp *child = Tcl_GetSlave(interp, Tcl_GetString(name[i])))
                clearTree(child);
        }
    }
    Tcl_DecrRefCount(names);
}

} // namespace

void cancel(Tcl_Interp *interp)
{
    // Tcl discards the text itself.
    Tcl_CancelEval(interp, Tcl_NewStringObj(message, -1), nullptr, TCL_CANCEL_UNWIND);
}

void clear(Tcl_Interp *interp)
{
    // The handler that carries it out may be waiting for a safe point still.
    if (Tcl_AsyncReady())
        Tcl_AsyncInvoke(nullptr, TCL_OK);
    clearTree(interp);
}

} // namespace cancellation
