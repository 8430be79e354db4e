#pragma once

#include <map>

#include <tcl.h>

// Tcl's notifier in a thread other than the GUI's: it has no event loop of Qt's, so it waits in the
// kernel for its descriptors, for the time, and for alerts of other threads. Each thread makes its
// own when Tcl first needs it there, and Tcl ends it with the thread.
class ThreadNotifier
{
public:
    ThreadNotifier();
    ~ThreadNotifier();
    ThreadNotifier(const ThreadNotifier &) = delete;
    ThreadNotifier &operator=(const ThreadNotifier &) = delete;

    // This thread's; made if there is none. Not to be called on the GUI thread.
    static ThreadNotifier *ofThisThread();
    // This thread's, or null.
    static ThreadNotifier *existing();
    // Wakes the thread whose notifier that is, from any thread. False when it is none of ours, or
    // gone; then those that were made behind Tcl's back wake, since it may mean one of them.
    static bool alert(void *threadNotifier);

    // Waits until a descriptor is ready, another thread alerts, or the time is over; null means for
    // ever. Queues an event for each descriptor.
    void wait(const Tcl_Time *time);

    void watch(int fd, int mask, Tcl_FileProc *proc, ClientData clientData);
    void forget(int fd);

    // Tcl knows it, and names it in its alerts.
    void becomeKnown() { known = true; }

private:
    struct Handler
    {
        int mask = 0;
        int readyMask = 0; // queued and not yet delivered
        Tcl_FileProc *proc = nullptr;
        ClientData clientData = nullptr;
    };

    static int deliver(Tcl_Event *event, int flags);
    void queue(int fd, Handler &handler, int ready);
    void wake() const;
    void takeAlerts() const;

    const int alerts; // an eventfd
    bool known = false;
    std::map<int, Handler> handlers; // by descriptor
};
