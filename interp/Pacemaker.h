#pragma once

#include <QtGlobal>

#include <atomic>
#include <ctime>
#include <thread>

#include <tcl.h>

class ErrorWatch;

// Marks an asynchronous handler of Tcl's from a thread of its own, every beatInterval or as much
// later as it is asked to rest, while the interpreter is at work; so that nothing is polled in the
// loops of scripts. Asleep while nothing runs.
class Pacemaker
{
public:
    // In milliseconds.
    static constexpr int beatInterval = 50;

    // The handler and the watch are the caller's, and outlive this.
    Pacemaker(Tcl_AsyncHandler asyncHandler, ErrorWatch &errorWatch);
    ~Pacemaker();
    Pacemaker(const Pacemaker &) = delete;
    Pacemaker &operator=(const Pacemaker &) = delete;

    // An evaluation begins, within another one or not; it ends. GUI thread only, as all below.
    void begin();
    void end();
    // The interpreter waits in Qt's event loop, which needs no beat, or goes on. Returns whether
    // it waited before.
    bool setWaiting(bool waits);
    // The handler has run; the next beat may come after so many milliseconds.
    void served(qint64 rest);

private:
    void run();
    void waitForBeat();
    void beat();
    void wake() const;
    bool sleep(int milliseconds) const;

    void mark();
    qint64 timeWorked() const;

    const Tcl_AsyncHandler handler;
    ErrorWatch &errors;
    const int alarm; // an eventfd
    const clockid_t workClock; // of the interpreter's thread
    std::atomic_int depth = 0; // of evaluations
    std::atomic_uint number = 0; // of the outermost one
    std::atomic_bool waiting = false;
    std::atomic_bool marked = false; // and not served yet
    std::atomic_bool asleep = false;
    std::atomic_bool ending = false;
    std::atomic<qint64> restEnd = 0; // in milliseconds of the steady clock
    unsigned numberBefore = 0; // at the last beat; the thread's own, as the next one
    bool wasNew = false; // what ran then
    std::thread thread; // the last one: it uses the others
};
