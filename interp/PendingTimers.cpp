#include "interp/PendingTimers.h"

#include <utility>

namespace {

// Answers a list of four elements for each: the path of the interpreter, the identifier, the
// script, and "timer" or "idle"; the last one that was set first, as "after info" has them.
constexpr char remembering[] =
    "::apply {{} {\n"
    "    set paths [list {}]\n"
    "    set timers {}\n"
    "    for {set i 0} {$i < [llength $paths]} {incr i} {\n"
    "        set path [lindex $paths $i]\n"
    "        foreach child [interp slaves $path] {lappend paths [list {*}$path $child]}\n"
    "        foreach id [interp eval $path {::after info}] {\n"
    "            set timer [interp eval $path [list ::after info $id]]\n"
    "            lappend timers [list $path $id {*}$timer]\n"
    "        }\n"
    "    }\n"
    "    return $timers\n"
    "}}";

constexpr char restoring[] =
    "::apply {timers {\n"
    "    foreach timer [lreverse $timers] {\n"
    "        lassign $timer path id script kind\n"
    "        if {![interp exists $path] || $id in [interp eval $path {::after info}]} continue\n"
    "        set time [expr {$kind eq {idle} ? {idle} : 0}]\n"
    "        interp eval $path [list ::after $time $script]\n"
    "    }\n"
    "}}";

} // namespace

void PendingTimers::remember(Tcl_Interp *interp)
{
    if (timers)
        return;
    const Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    if (Tcl_EvalEx(interp, remembering, -1, TCL_EVAL_GLOBAL) == TCL_OK) {
        timers = Tcl_GetObjResult(interp);
        Tcl_IncrRefCount(timers);
    }
    Tcl_RestoreInterpState(interp, state);
}

void PendingTimers::restore(Tcl_Interp *interp)
{
    if (!timers)
        return;
    const Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    Tcl_Obj *const script = Tcl_NewStringObj(restoring, -1);
    Tcl_IncrRefCount(script);
    Tcl_ListObjAppendElement(nullptr, script, timers);
    Tcl_EvalObjEx(interp, script, TCL_EVAL_GLOBAL);
    Tcl_DecrRefCount(script);
    Tcl_RestoreInterpState(interp, state);
    forget();
}

void PendingTimers::forget()
{
    if (Tcl_Obj *const old = std::exchange(timers, nullptr))
        Tcl_DecrRefCount(old);
}
