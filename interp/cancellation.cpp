#include "interp/cancellation.h"

// Tcl's own, from its table of internal functions: nothing public ends a cancellation while
// something is evaluated still.
extern "C" int TclResetCancellation(Tcl_Interp *interp, int force);

namespace cancellation {

namespace {

void clearChildren(Tcl_Interp *interp);

void clearTree(Tcl_Interp *interp)
{
    Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    TclResetCancellation(interp, 1);
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
