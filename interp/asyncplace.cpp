#include "interp/asyncplace.h"

#include <iterator>

#include <execinfo.h>

namespace asyncplace {

namespace {

// Where Tcl asks at the end of a command; null when that is not known.
void *endOfCommand = nullptr;

int note(ClientData, Tcl_Interp *, int code)
{
    if (code == TCL_ERROR)
        endOfCommand = ofQuestion();
    return code;
}

} // namespace

[[gnu::noinline]] void *ofQuestion()
{
    // This function, the procedure, Tcl_AsyncInvoke, and who called that.
    void *frames[4] = {};
    const int known = backtrace(frames, int(std::size(frames)));
    return known == int(std::size(frames)) ? frames[3] : nullptr;
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
