#include "interp/Pacemaker.h"

#include "interp/ErrorWatch.h"

#include <chrono>
#include <cstdint>

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

// So many beats without an evaluation, and the thread sleeps until one begins; waking it for each
// of many short ones would cost more than they do.
constexpr int beatsBeforeSleep = 20;

// A beat that came just behind the begin of an evaluation is made up for so soon, in milliseconds.
constexpr int secondLook = Pacemaker::beatInterval / 2;

// Errors are caught soon after; in milliseconds that the interpreter works.
constexpr int longestError = 20;

qint64 now()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

clockid_t clockOfThisThread()
{
    clockid_t clock = CLOCK_MONOTONIC;
    ::pthread_getcpuclockid(::pthread_self(), &clock);
    return clock;
}

} // namespace

Pacemaker::Pacemaker(Tcl_AsyncHandler asyncHandler, ErrorWatch &errorWatch)
    : handler(asyncHandler),
      errors(errorWatch),
      alarm(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      workClock(clockOfThisThread()),
      thread([this] { run(); })
{
}

Pacemaker::~Pacemaker()
{
    ending = true;
    wake();
    thread.join();
    ::close(alarm);
}

void Pacemaker::begin()
{
    // Within another one, the count of the outermost stays: it has been running all the time.
    if (depth == 0)
        number.fetch_add(1, std::memory_order_relaxed);
    depth.store(depth + 1);
    if (asleep.load() && asleep.exchange(false))
        wake();
}

void Pacemaker::end() { depth.store(depth - 1, std::memory_order_relaxed); }

bool Pacemaker::setWaiting(bool waits)
{
    const bool before = waiting.load(std::memory_order_relaxed);
    waiting.store(waits, std::memory_order_relaxed);
    return before;
}

void Pacemaker::served(qint64 rest)
{
    restEnd.store(now() + rest, std::memory_order_relaxed);
    marked.store(false);
}

void Pacemaker::run()
{
    int idleBeats = 0;
    while (!ending) {
        idleBeats = depth > 0 ? 0 : idleBeats + 1;
        if (idleBeats < beatsBeforeSleep) {
            waitForBeat();
            beat();
            continue;
        }
        asleep = true;
        if (depth == 0)
            sleep(-1);
        asleep = false;
        idleBeats = 0;
    }
}

void Pacemaker::waitForBeat()
{
    sleep(wasNew ? secondLook : beatInterval);
    const qint64 rest = restEnd.load(std::memory_order_relaxed) - now();
    if (rest > 0 && !ending)
        sleep(int(rest));
}

// What has only just begun may be over soon, and is left alone.
void Pacemaker::beat()
{
    const unsigned current = number.load(std::memory_order_relaxed);
    wasNew = depth > 0 && current != numberBefore;
    numberBefore = current;
    if (ending || wasNew || depth == 0 || waiting || marked.exchange(true))
        return;
    mark();
}

// A busy machine may hold the interpreter up for longer than that with an error on its way.
void Pacemaker::mark()
{
    if (errors.mark(handler))
        return;
    const qint64 end = timeWorked() + longestError;
    do
        sleep(longestError);
    while (errors.isWaiting() && depth > 0 && !waiting && !ending && timeWorked() < end);
    errors.insist();
}

qint64 Pacemaker::timeWorked() const
{
    timespec time {};
    ::clock_gettime(workClock, &time);
    return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
}

void Pacemaker::wake() const
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(alarm, &one, sizeof one);
}

// Whether somebody woke it.
bool Pacemaker::sleep(int milliseconds) const
{
    pollfd polled {alarm, POLLIN, 0};
    if (::poll(&polled, 1, milliseconds) <= 0)
        return false;
    std::uint64_t count = 0;
    return ::read(alarm, &count, sizeof count) > 0;
}
