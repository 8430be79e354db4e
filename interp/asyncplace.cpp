#include "interp/asyncplace.h"

#include <unwind.h>

namespace asyncplace {

namespace {

// Where Tcl asks at the end of a command; null when that is not known.
void *endOfCommand = nullptr;

struct Walk
{
    int framesLeft; // after the one that walks
    void *place;
};

_Unwind_Reason_Code goUp(_Unwind_Context *context, void *data)
{
    auto *walk = static_cast<Walk *>(data);
    if (walk->framesLeft-- > 0)
        return _URC_NO_REASON;
    walk->place = reinterpret_cast<void *>(_Unwind_GetIP(context));
    return _URC_END_OF_STACK;
}

int note(ClientData, Tcl_Interp *, int code)
{
    if (code == TCL_ERROR)
        endOfCommand = ofQuestion();
    return code;
}

} // namespace

[[gnu::noinline]] void *ofQuestion()
{
    // The procedure, Tcl_AsyncInvoke, and who called that. Not by backtrace(), which counts a frame
    // more under AddressSanitizer.
    Walk walk {3, nullptr};
    _Unwind_Backtrace(goUp, &walk);
    return walk.place;
}

bool isCaughtError(int code, const void *place)
{
    return code == TCL_ERROR && endOfCommand && place != endOfCommand;
}

// By a command that fails, outside of compiled code.
void learn(Tcl_Interp *interp)
{
    Tcl_AsyncHandler handler = Tcl_AsyncCreate(note, nullptr);
    Tcl_Obj *const word = Tcl_NewStringObj("::rename", -1);
    Tcl_IncrRefCount(word);
    const Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    Tcl_AsyncMark(handler);
    Tcl_EvalObjv(interp, 1, &word, TCL_EVAL_GLOBAL);
    Tcl_RestoreInterpState(interp, state);
    Tcl_DecrRefCount(word);
    Tcl_AsyncDelete(handler);
}

} // namespace asyncplace
