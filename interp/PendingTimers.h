#pragma once

#include <tcl.h>

// The scripts of "after" that wait for their time, in an interpreter and in its children. Once an
// evaluation is cancelled Tcl serves those that are due with it, behind the one that was running,
// and none of them runs: Tcl counts them all as part of what ends.
class PendingTimers
{
public:
    PendingTimers() = default;
    ~PendingTimers() { forget(); }
    PendingTimers(const PendingTimers &) = delete;
    PendingTimers &operator=(const PendingTimers &) = delete;

    // Remembers those that there are now.
    void remember(Tcl_Interp *interp);
    // Sets those again that are gone since, as due at once, in their order, and forgets them all.
    void restore(Tcl_Interp *interp);

private:
    void forget();

    Tcl_Obj *timers = nullptr;
};
