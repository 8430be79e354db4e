#include "interp/notifierprocs.h"

#include "interp/NotifierState.h"
#include "interp/ScriptRuns.h"
#include "interp/TclFileHandler.h"
#include "interp/TclTimeNotifier.h"

#include <QCoreApplication>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace {

struct FileHandlerEvent
{
    Tcl_Event header;
    int fd;
};

// Microseconds are cut off; what is too long for a timer is asked for again when it has gone off.
int milliseconds(const Tcl_Time &time)
{
    constexpr int longest = std::numeric_limits<int>::max();
    if (time.sec >= longest / 1000)
        return longest;
    return int(time.sec * 1000 + time.usec / 1000);
}

// The wait of a notifier that rests. Qt's events may run scripts, which is why an answer of 1 lets
// Tcl look at the variable that it waits for. Only a time of exactly 0 is a poll: what is left of a
// millisecond would be polled thousands of times.
int restingWait(const Tcl_Time *time)
{
    if (time && time->sec == 0 && time->usec == 0) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        return notifier->found;
    }
    if (time) {
        const Tcl_Time whole = wholeMilliseconds(*time);
        SetTimer(&whole);
    } else {
        SetTimer(nullptr);
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return 1;
}

// What is served meanwhile would be stopped, too.
bool isStopping()
{
    const ScriptRuns *runs = ScriptRuns::instance();
    return runs && runs->isStopping();
}

int spinningWait(const Tcl_Time *time)
{
    const int duration = time ? milliseconds(*time) : 0;
    // Given a time of 0, the pass with a time goes on for up to a millisecond.
    if (duration > 0)
        QCoreApplication::processEvents(QEventLoop::AllEvents, duration);
    else
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    notifier->resumeTimer();
    return 1;
}

} // namespace

Tcl_Time wholeMilliseconds(const Tcl_Time &time)
{
    constexpr long second = 1'000'000;
    const long rounded = (time.usec + 999) / 1000 * 1000;
    if (rounded < second || time.sec == std::numeric_limits<decltype(time.sec)>::max())
        return {time.sec, std::min(rounded, second - 1)};
    return {time.sec + 1, 0};
}

void SetTimer(const Tcl_Time *time)
{
    if (!notifier)
        return;
    if (notifier->timerActive || (notifier->resting && !time))
        notifier->timer->stop();
    if (time)
        notifier->timer->start(milliseconds(*time));
    notifier->timerActive = time ? 1 : 0;
}

int WaitForEvent(const Tcl_Time *time)
{
    if (!notifier)
        return 0;
    notifier->found = false;
    notifier->timeNotifier->cancel();
    ++notifier->waits;
    ScriptRuns *runs = ScriptRuns::instance();
    const bool waited = runs && runs->setWaiting(true);
    const int answer = notifier->resting ? restingWait(time) : spinningWait(time);
    if (runs)
        runs->setWaiting(waited);
    --notifier->waits;
    notifier->found = true; // for the wait around this one, if any
    notifier->timeNotifier->serveLater();
    return answer;
}

void CreateFileHandler(int fd, int mask, Tcl_FileProc *proc, ClientData clientData)
{
    if (!notifier)
        return;
    TclFileHandler *handler = notifier->find(fd);
    if (!handler)
        handler = new TclFileHandler(fd);
    handler->proc = proc;
    handler->clientData = clientData;
    handler->setMask(mask);
}

void DeleteFileHandler(int fd)
{
    if (!notifier)
        return;
    TclFileHandler **link = &notifier->firstFileHandler;
    while (*link && (*link)->fd != fd)
        link = &(*link)->next;
    if (TclFileHandler *handler = *link) {
        *link = handler->next;
        delete handler;
    }
}

void FinalizeNotifier(ClientData) { }

void NotifierExitHandler(ClientData) { }

void queueFileEvent(int fd)
{
    auto *event = reinterpret_cast<FileHandlerEvent *>(Tcl_Alloc(sizeof(FileHandlerEvent)));
    event->header.proc = FileHandlerEventProc;
    event->fd = fd;
    Tcl_QueueEvent(&event->header, TCL_QUEUE_TAIL);
}

int FileHandlerEventProc(Tcl_Event *event, int flags)
{
    if (!(flags & TCL_FILE_EVENTS) || isStopping())
        return 0;
    if (TclFileHandler *handler =
            notifier ? notifier->find(reinterpret_cast<FileHandlerEvent *>(event)->fd) : nullptr)
        handler->deliver();
    return 1;
}
