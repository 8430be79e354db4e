#include "interp/ErrorWatch.h"

#include <utility>

namespace {

constexpr int writes = TCL_GLOBAL_ONLY | TCL_TRACE_WRITES;

// An error that has arrived has taken its message with it.
bool isWithoutResult(Tcl_Interp *interp)
{
    return *Tcl_GetString(Tcl_GetObjResult(interp)) == '\0';
}

} // namespace

ErrorWatch::~ErrorWatch()
{
    for (Tcl_Interp *interp : watched) {
        removeTraces(interp);
        Tcl_DontCallWhenDeleted(interp, atDeletion, this);
    }
}

// Tcl's own trace comes with the variable; only where ours is the last one does it write early.
void ErrorWatch::watch(Tcl_Interp *interp)
{
    if (watched.insert(interp).second)
        Tcl_CallWhenDeleted(interp, atDeletion, this);
    removeTraces(interp);
    Tcl_TraceVar2(interp, "errorInfo", nullptr, writes, atInfo, this);
    Tcl_TraceVar2(interp, "errorCode", nullptr, writes, atCode, this);
}

void ErrorWatch::removeTraces(Tcl_Interp *interp)
{
    Tcl_UntraceVar2(interp, "errorInfo", nullptr, writes, atInfo, this);
    Tcl_UntraceVar2(interp, "errorCode", nullptr, writes, atCode, this);
}

bool ErrorWatch::mark(Tcl_AsyncHandler handler)
{
    const std::lock_guard lock(mutex);
    waiting = handler;
    if (!onItsWay)
        markWaiting();
    return !waiting;
}

bool ErrorWatch::isWaiting()
{
    const std::lock_guard lock(mutex);
    return waiting;
}

void ErrorWatch::insist()
{
    const std::lock_guard lock(mutex);
    markWaiting();
}

void ErrorWatch::markWaiting()
{
    if (Tcl_AsyncHandler handler = std::exchange(waiting, nullptr))
        Tcl_AsyncMark(handler);
}

void ErrorWatch::forget()
{
    if (serving)
        return;
    arriving = false;
    set(false);
}

void ErrorWatch::set(bool isOnItsWay)
{
    const std::lock_guard lock(mutex);
    onItsWay = isOnItsWay;
    if (!onItsWay)
        markWaiting();
}

char *ErrorWatch::atInfo(ClientData self, Tcl_Interp *interp, const char *, const char *, int flags)
{
    auto *const watch = static_cast<ErrorWatch *>(self);
    if ((flags & TCL_INTERP_DESTROYED) != 0)
        return nullptr;
    const bool hasArrived = std::exchange(watch->arriving, false) && isWithoutResult(interp);
    watch->set(!hasArrived);
    if (!hasArrived)
        watch->serve(interp);
    return nullptr;
}

char *ErrorWatch::atCode(ClientData self, Tcl_Interp *interp, const char *, const char *, int flags)
{
    if ((flags & TCL_INTERP_DESTROYED) == 0)
        static_cast<ErrorWatch *>(self)->arriving = isWithoutResult(interp);
    return nullptr;
}

// What was marked before is asked for here, and not where it does harm.
void ErrorWatch::serve(Tcl_Interp *interp)
{
    if (serving || !Tcl_AsyncReady())
        return;
    serving = true;
    Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_ERROR);
    Tcl_AsyncInvoke(interp, TCL_OK);
    Tcl_RestoreInterpState(interp, state);
    serving = false;
}

void ErrorWatch::atDeletion(ClientData self, Tcl_Interp *interp)
{
    static_cast<ErrorWatch *>(self)->watched.erase(interp);
}
