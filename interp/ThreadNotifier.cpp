#include "interp/ThreadNotifier.h"

#include <cstdint>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

thread_local ThreadNotifier *mine = nullptr;

// Never destroyed: other threads may go on while the process ends.
std::mutex allMutex;
std::set<ThreadNotifier *> &all()
{
    static auto *const notifiers = new std::set<ThreadNotifier *>;
    return *notifiers;
}

struct FileEvent
{
    Tcl_Event header;
    int fd;
};

short pollEvents(int mask)
{
    short events = 0;
    if (mask & TCL_READABLE)
        events |= POLLIN;
    if (mask & TCL_WRITABLE)
        events |= POLLOUT;
    if (mask & TCL_EXCEPTION)
        events |= POLLPRI;
    return events;
}

// An end or an error is found by reading or writing.
int tclMask(short events)
{
    int mask = 0;
    if (events & (POLLIN | POLLHUP | POLLERR))
        mask |= TCL_READABLE;
    if (events & (POLLOUT | POLLERR))
        mask |= TCL_WRITABLE;
    if (events & POLLPRI)
        mask |= TCL_EXCEPTION;
    return mask;
}

} // namespace

ThreadNotifier::ThreadNotifier() : alerts(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    mine = this;
    const std::lock_guard lock(allMutex);
    all().insert(this);
}

ThreadNotifier::~ThreadNotifier()
{
    {
        const std::lock_guard lock(allMutex);
        all().erase(this);
    }
    ::close(alerts);
    mine = nullptr;
}

ThreadNotifier *ThreadNotifier::ofThisThread() { return mine ? mine : new ThreadNotifier; }

ThreadNotifier *ThreadNotifier::existing() { return mine; }

bool ThreadNotifier::alert(void *threadNotifier)
{
    const std::lock_guard lock(allMutex);
    const auto found = all().find(static_cast<ThreadNotifier *>(threadNotifier));
    if (found != all().end()) {
        (*found)->wake();
        return true;
    }
    for (const ThreadNotifier *other : all()) {
        if (!other->known)
            other->wake();
    }
    return false;
}

void ThreadNotifier::wake() const
{
    // Fails only when the counter is full, and then the thread wakes anyway.
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(alerts, &one, sizeof one);
}

void ThreadNotifier::takeAlerts() const
{
    std::uint64_t count = 0;
    [[maybe_unused]] const ssize_t taken = ::read(alerts, &count, sizeof count);
}

void ThreadNotifier::wait(const Tcl_Time *time)
{
    std::vector<pollfd> polled {{alerts, POLLIN, 0}};
    // Ends and errors are told of even where nothing is asked for.
    for (const auto &[fd, handler] : handlers) {
        if (handler.mask)
            polled.push_back({fd, pollEvents(handler.mask), 0});
    }
    timespec limit = {};
    if (time)
        limit = {time->sec, time->usec * 1000};
    if (::ppoll(polled.data(), polled.size(), time ? &limit : nullptr, nullptr) <= 0)
        return; // a signal, too, lets Tcl look at the clock again
    if (polled.front().revents)
        takeAlerts();
    for (auto ready = polled.cbegin() + 1; ready != polled.cend(); ++ready) {
        Handler &handler = handlers[ready->fd];
        // A descriptor that was closed behind Tcl's back would end every wait at once.
        if (ready->revents & POLLNVAL)
            handler.mask = 0;
        else if (ready->revents)
            queue(ready->fd, handler, tclMask(ready->revents) & handler.mask);
    }
}

void ThreadNotifier::queue(int fd, Handler &handler, int ready)
{
    const bool isQueued = handler.readyMask;
    handler.readyMask |= ready;
    if (isQueued || !handler.readyMask)
        return;
    auto *event = reinterpret_cast<FileEvent *>(Tcl_Alloc(sizeof(FileEvent)));
    event->header.proc = deliver;
    event->fd = fd;
    Tcl_QueueEvent(&event->header, TCL_QUEUE_TAIL);
}

int ThreadNotifier::deliver(Tcl_Event *event, int flags)
{
    if (!(flags & TCL_FILE_EVENTS))
        return 0;
    if (!mine)
        return 1;
    const auto found = mine->handlers.find(reinterpret_cast<FileEvent *>(event)->fd);
    if (found == mine->handlers.end())
        return 1;
    Handler &handler = found->second;
    const int ready = handler.mask & std::exchange(handler.readyMask, 0);
    if (ready)
        handler.proc(handler.clientData, ready); // may forget the handler
    return 1;
}

void ThreadNotifier::watch(int fd, int mask, Tcl_FileProc *proc, ClientData clientData)
{
    Handler &handler = handlers[fd];
    handler.mask = mask;
    handler.proc = proc;
    handler.clientData = clientData;
}

void ThreadNotifier::forget(int fd) { handlers.erase(fd); }
