#pragma once

#include "supervision/Process.h"
#include "supervision/Told.h"

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace Supervision {

// Runs a program, and is the one to whom everything falls that the program's processes leave
// behind: so what belongs to the run is what is below it, and there is nothing left of the run
// when it has no children.
//
// While the program runs, orphans that keep Ninja waiting for ever are ended. When it has ended,
// those in the same session are; daemons, which have one of their own, stay. When the run is
// cancelled, or whoever wanted it is gone, all are.
class Supervisor
{
public:
    struct Job
    {
        // The socket over which is told what happens, and asked for: see Request.
        int control = -1;
        // From the request to end until the signal that cannot be ignored.
        std::chrono::milliseconds graceTime {};
        // The program that makes steps its children, by its name: the one that is run, or one
        // that it starts.
        std::string ninja;
        // With arguments; ends with a null.
        char **program = nullptr;
    };

    // A byte on the socket; its end is a Cancel, too.
    enum Request : char { Cancel = 'c', EndAtOnce = 'k' };

    explicit Supervisor(const Job &aJob) : job(aJob), told(aJob.control) { }

    // Returns when all is over.
    void run();

private:
    using Clock = std::chrono::steady_clock;
    enum class Phase { Watching, CleaningUp, Cancelling, EndingAtOnce };

    bool start();
    void wait(std::chrono::milliseconds atMost);
    void takeRequests();
    void takeNotice();
    void waitForTheLast();

    void watch();
    std::vector<Process> keepers() const;
    pid_t findNinja() const;

    void begin(Phase next);
    void goOnEnding();
    std::vector<Process> toEnd() const;
    void askToEnd(const std::vector<Process> &processes);
    bool isAllocation(const Process &process) const;
    bool isTidy(const Process &process) const;
    bool isOver() const;

    const Job job;
    const Told told;
    Phase phase = Phase::Watching;
    int signals = -1;
    bool isControlled = true;
    pid_t programId = 0;
    bool programRuns = false;
    bool hasChildren = false;
    bool isGivenUp = false;
    // As it was when the ending began; 0 when an allocation had not come yet.
    pid_t ninjaId = 0;

    // By number and start, when they were asked to end.
    using Identity = std::pair<pid_t, unsigned long long>;
    std::map<Identity, Clock::time_point> asked;
    // Who kept Ninja waiting at the last look.
    std::map<Identity, bool> seenWaiting;
    Clock::time_point begun;
};

} // namespace Supervision
