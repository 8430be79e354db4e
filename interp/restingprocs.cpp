#include "interp/restingprocs.h"

#include "interp/GuiAlert.h"
#include "interp/notifierprocs.h"
#include "interp/ThreadNotifier.h"

namespace {

// Results: what Tcl hands to alertThread; null for the GUI thread.
// Side effects: makes the notifier of a thread; Tcl calls this in a forked child again.
ClientData initThread()
{
    if (GuiAlert::isGuiThread())
        return nullptr;
    ThreadNotifier *own = ThreadNotifier::ofThisThread();
    own->becomeKnown();
    return own;
}

// Results: none.
// Side effects: ends the notifier of the thread that ends; Tcl sees to it that no other thread
// alerts it meanwhile.
void finalizeThread(ClientData clientData)
{
    if (GuiAlert::isGuiThread())
        FinalizeNotifier(clientData);
    else
        delete ThreadNotifier::existing();
}

// Results: none.
// Side effects: wakes the thread. The GUI thread has nothing of ours in Tcl's records if Tcl was
// there before the notifier.
void alertThread(ClientData clientData)
{
    if (!ThreadNotifier::alert(clientData))
        GuiAlert::send();
}

// Results: none.
// Side effects: starts the GUI thread's timer. Other threads have none: they only wait.
void setThreadTimer(const Tcl_Time *time)
{
    if (!GuiAlert::isGuiThread())
        return;
    if (time) {
        const Tcl_Time whole = wholeMilliseconds(*time);
        SetTimer(&whole);
    } else {
        SetTimer(nullptr);
    }
}

// Results: those of WaitForEvent on the GUI thread; 0 on others, so that Tcl looks what came.
// Side effects: waits, as the thread does.
int waitInThread(const Tcl_Time *time)
{
    if (GuiAlert::isGuiThread())
        return WaitForEvent(time);
    ThreadNotifier::ofThisThread()->wait(time);
    return 0;
}

void createThreadFileHandler(int fd, int mask, Tcl_FileProc *proc, ClientData clientData)
{
    if (GuiAlert::isGuiThread())
        CreateFileHandler(fd, mask, proc, clientData);
    else
        ThreadNotifier::ofThisThread()->watch(fd, mask, proc, clientData);
}

void deleteThreadFileHandler(int fd)
{
    if (GuiAlert::isGuiThread())
        DeleteFileHandler(fd);
    else if (ThreadNotifier *own = ThreadNotifier::existing())
        own->forget(fd);
}

} // namespace

Tcl_NotifierProcs restingProcs()
{
    Tcl_NotifierProcs procs = {};
    procs.setTimerProc = setThreadTimer;
    procs.waitForEventProc = waitInThread;
    procs.createFileHandlerProc = createThreadFileHandler;
    procs.deleteFileHandlerProc = deleteThreadFileHandler;
    procs.initNotifierProc = initThread;
    procs.finalizeNotifierProc = finalizeThread;
    procs.alertNotifierProc = alertThread;
    return procs;
}
