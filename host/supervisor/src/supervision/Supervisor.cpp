#include "supervision/Supervisor.h"

#include "supervision/procfs.h"
#include "supervision/Table.h"
#include "supervision/waiting.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>
#include <utility>

using namespace std::chrono_literals;

namespace Supervision {

namespace {

// How often is looked whether some keep Ninja waiting, and whether processes are gone, and how long
// killed ones have.
constexpr auto lookInterval = 500ms;
constexpr auto pollInterval = 25ms;
constexpr auto killTime = 10s;

// How often, and after what time again, is looked whether those end that have to do with the
// program's end.
constexpr int looksAtTheLast = 20;
constexpr auto lastInterval = 5ms;

const int watched[] {SIGCHLD, SIGTERM, SIGINT, SIGHUP};

} // namespace

void Supervisor::run()
{
    if (!start())
        return;
    while (!isOver()) {
        wait(phase == Phase::Watching ? lookInterval : pollInterval);
        if (phase == Phase::Watching)
            watch();
        else
            goOnEnding();
    }
}

bool Supervisor::start()
{
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    setsid();
    sigset_t mask;
    sigset_t before;
    sigemptyset(&mask);
    for (const int number : watched)
        sigaddset(&mask, number);
    sigprocmask(SIG_BLOCK, &mask, &before);
    signals = signalfd(-1, &mask, SFD_CLOEXEC | SFD_NONBLOCK);
    fcntl(job.control, F_SETFD, FD_CLOEXEC);

    // Tells by its end that the program runs, or why it does not.
    int failure[2];
    if (signals < 0 || pipe2(failure, O_CLOEXEC) != 0) {
        told.error(std::strerror(errno));
        return false;
    }
    const pid_t self = getpid();
    programId = fork();
    if (programId == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        sigprocmask(SIG_SETMASK, &before, nullptr);
        if (getppid() == self)
            execvp(job.program[0], job.program);
        const int reason = errno;
        if (write(failure[1], &reason, sizeof reason) < 0)
            _exit(126);
        _exit(127);
    }
    int reason = errno;
    close(failure[1]);
    if (programId > 0 && read(failure[0], &reason, sizeof reason) <= 0)
        reason = 0;
    close(failure[0]);
    if (reason != 0)
        told.error(std::strerror(reason));
    programRuns = hasChildren = reason == 0;
    begun = Clock::now();
    return programRuns;
}

// Until something happens, or the time is over.
void Supervisor::wait(std::chrono::milliseconds atMost)
{
    pollfd sources[] {{signals, POLLIN, 0}, {isControlled ? job.control : -1, POLLIN, 0}};
    poll(sources, 2, int(atMost.count()));
    signalfd_siginfo signal;
    while (read(signals, &signal, sizeof signal) > 0) {
        if (signal.ssi_signo != SIGCHLD && phase == Phase::Watching)
            begin(Phase::Cancelling);
    }
    if (sources[1].revents != 0)
        takeRequests();
    takeNotice();
}

void Supervisor::takeRequests()
{
    char request = Cancel;
    const ssize_t size = recv(job.control, &request, 1, MSG_DONTWAIT);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    isControlled = size > 0;
    if (request == EndAtOnce)
        begin(Phase::EndingAtOnce);
    else if (phase == Phase::Watching)
        begin(Phase::Cancelling);
}

// Of those that have ended.
void Supervisor::takeNotice()
{
    int status = 0;
    pid_t ended = 0;
    while ((ended = waitpid(-1, &status, WNOHANG)) > 0) {
        if (ended != programId)
            continue;
        programRuns = false;
        told.ended(status);
        if (phase == Phase::Watching)
            begin(Phase::CleaningUp);
    }
    hasChildren = ended == 0;
}

// What ends by itself with the program, as the helpers of an allocation do, was not left behind.
void Supervisor::waitForTheLast()
{
    for (int look = 0; look < looksAtTheLast; ++look) {
        takeNotice();
        if (!hasChildren)
            return;
        std::this_thread::sleep_for(lastInterval);
    }
    takeNotice();
}

void Supervisor::watch()
{
    if (Clock::now() - begun < lookInterval)
        return;
    begun = Clock::now();
    const auto before = std::exchange(seenWaiting, {});
    std::vector<Process> fresh;
    for (const Process &keeper : keepers()) {
        const Identity identity(keeper.id, keeper.start);
        seenWaiting.emplace(identity, true);
        const auto askedAt = asked.find(identity);
        if (askedAt != asked.end()) {
            if (begun - askedAt->second >= job.graceTime)
                sendSignal(keeper, SIGKILL);
        } else if (before.count(identity)) {
            fresh.push_back(keeper);
        }
    }
    if (fresh.empty())
        return;
    told.left(fresh);
    askToEnd(fresh);
}

std::vector<Process> Supervisor::keepers() const
{
    std::vector<pid_t> orphans = someChildrenOf(getpid());
    orphans.erase(std::remove(orphans.begin(), orphans.end(), programId), orphans.end());
    if (orphans.empty())
        return {};
    const pid_t ninja = findNinja();
    if (ninja == 0)
        return {};
    Scene scene;
    for (const Process &orphan : Table(allProcesses()).below(getpid(), programId))
        scene.orphans.push_back({orphan, pipesOf(orphan.id)});
    scene.ninja = pipesOf(ninja);
    for (const Process &step : Table(allProcesses()).childrenOf(ninja))
        scene.steps.push_back({step, pipesOf(step.id)});
    return keepersIn(scene);
}

// An allocation may stand between.
pid_t Supervisor::findNinja() const
{
    std::vector<pid_t> generation {programId};
    while (!generation.empty()) {
        std::vector<pid_t> next;
        for (const pid_t id : generation) {
            const std::optional<Process> process = processOf(id);
            if (process && process->name == job.ninja)
                return id;
            const std::vector<pid_t> children = someChildrenOf(id);
            next.insert(next.end(), children.begin(), children.end());
        }
        generation = std::move(next);
    }
    return 0;
}

void Supervisor::begin(Phase next)
{
    if (next <= phase)
        return;
    phase = next;
    if (programRuns && ninjaId == 0)
        ninjaId = findNinja();
    begun = Clock::now();
    asked.clear();
    if (phase != Phase::CleaningUp)
        return;
    waitForTheLast();
    if (!hasChildren)
        return;
    const std::vector<Process> left = toEnd();
    if (!left.empty())
        told.left(left);
}

void Supervisor::goOnEnding()
{
    const auto passed = Clock::now() - begun;
    isGivenUp = passed > job.graceTime + killTime;
    const bool killing = phase == Phase::EndingAtOnce || passed >= job.graceTime;
    for (const Process &process : toEnd()) {
        const bool kept = phase == Phase::EndingAtOnce ? isAllocation(process) : isTidy(process);
        if (isGivenUp || (killing && !kept))
            sendSignal(process, SIGKILL);
        else if (!isAllocation(process) || ninjaId == 0 || passed >= 2 * job.graceTime)
            askToEnd({process});
    }
}

// It is given back when Ninja has ended, or when it is asked for that; killed, it would stay. Both
// at once are too much for some.
bool Supervisor::isAllocation(const Process &process) const
{
    return process.id == programId && ninjaId != programId;
}

// Ninja ends once its steps have, and removes what they have left half done. On a busy machine that
// takes its time.
bool Supervisor::isTidy(const Process &process) const
{
    return process.id == programId || process.id == ninjaId;
}

std::vector<Process> Supervisor::toEnd() const
{
    if (!hasChildren)
        return {};
    std::vector<Process> found = Table(allProcesses()).below(getpid());
    found.erase(std::remove_if(found.begin(), found.end(),
                               [this](const Process &process) {
                                   return !process.isAlive
                                       || (phase == Phase::CleaningUp
                                           && process.session != getpid());
                               }),
                found.end());
    return found;
}

// Each process once: some were started while the others were looked for.
void Supervisor::askToEnd(const std::vector<Process> &processes)
{
    for (const Process &process : processes) {
        if (asked.emplace(Identity(process.id, process.start), Clock::now()).second)
            sendSignal(process, SIGTERM);
    }
}

bool Supervisor::isOver() const
{
    if (phase == Phase::Watching)
        return false;
    return !hasChildren || isGivenUp || (phase == Phase::CleaningUp && toEnd().empty());
}

} // namespace Supervision
