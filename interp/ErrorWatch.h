#pragma once

#include <mutex>
#include <set>

#include <tcl.h>

// Knows when an error is on its way to the "catch" that takes it, so that no asynchronous handler
// is marked meanwhile: where Tcl asks for one there it spoils the answer (asyncplace.h).
//
// Tcl writes ::errorInfo when an error sets out, where that variable has a trace, and ::errorCode
// and
// ::errorInfo, in this order, when it has arrived.
class ErrorWatch
{
public:
    ErrorWatch() = default;
    ~ErrorWatch();
    ErrorWatch(const ErrorWatch &) = delete;
    ErrorWatch &operator=(const ErrorWatch &) = delete;

    // Until either is gone. A script that removes one of the variables ends the watch; then it may
    // be begun once more.
    void watch(Tcl_Interp *interp);

    // From any thread. False when an error is on its way, and the handler is marked once it has
    // arrived; or now, when somebody insists: what is on its way for long is none, but a script
    // that writes to the variables.
    bool mark(Tcl_AsyncHandler handler);
    // Whether that handler is still to be marked.
    bool isWaiting();
    void insist();

    // A handler is being asked.
    void forget();

private:
    static char *atInfo(ClientData self, Tcl_Interp *interp, const char *, const char *, int flags);
    static char *atCode(ClientData self, Tcl_Interp *interp, const char *, const char *, int flags);
    static void atDeletion(ClientData self, Tcl_Interp *interp);
    void removeTraces(Tcl_Interp *interp);
    void serve(Tcl_Interp *interp);
    void set(bool isOnItsWay);
    void markWaiting();

    std::mutex mutex;
    bool onItsWay = false;
    Tcl_AsyncHandler waiting = nullptr;
    // The interpreters' thread only, as the rest.
    bool arriving = false; // ::errorInfo is written next
    bool serving = false;
    std::set<Tcl_Interp *> watched;
};
