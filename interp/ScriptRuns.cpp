#include "interp/ScriptRuns.h"

#include "interp/asyncplace.h"
#include "interp/cancellation.h"
#include "interp/ErrorWatch.h"
#include "interp/Pacemaker.h"
#include "interp/PendingTimers.h"

#include <QSocketNotifier>

#include <algorithm>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace {

ScriptRuns *theInstance = nullptr;

// From the begin of a pass to that of the next one, in milliseconds, where the script has at least
// half of that: with what it takes to get there, the window is painted ten times a second.
constexpr qint64 longestPeriod = 75;

// For how long the script goes on after a pass: nine tenths of the time, or as much of it as leaves
// the window alive. All in milliseconds.
qint64 restAfter(qint64 pass) { return std::min(9 * pass, std::max(longestPeriod - pass, pass)); }

} // namespace

int ScriptRuns::blockers = 0;

ScriptRuns::PassBlocker::PassBlocker() { ++blockers; }

ScriptRuns::PassBlocker::~PassBlocker() { --blockers; }

ScriptRuns *ScriptRuns::instance() { return theInstance; }

ScriptRuns::ScriptRuns(Tcl_Interp *watched, Pass livePass)
    : interp(watched),
      pass(std::move(livePass)),
      handler(Tcl_AsyncCreate(serve, this)),
      errors(std::make_unique<ErrorWatch>()),
      pacemaker(std::make_unique<Pacemaker>(handler, *errors)),
      timers(std::make_unique<PendingTimers>())
{
    theInstance = this;
    asyncplace::learn(interp);
    errors->watch(interp);
}

ScriptRuns::~ScriptRuns()
{
    theInstance = nullptr;
    pacemaker.reset();
    errors.reset();
    Tcl_AsyncDelete(handler);
}

void ScriptRuns::begin(const QString &command)
{
    pacemaker->begin();
    const bool isCommand = !command.isEmpty() && commandDepth == 0;
    if (++depth > 1 && !isCommand)
        return;
    sinceBegin.start();
    if (!isCommand)
        return;
    commandDepth = depth;
    outermost = command;
    hasStopped = false;
    tellOfBegin();
}

// A stop has unwound those within; a cancellation of the script's own unwinds all. One that comes
// only now is meant for what waits around an evaluation that has done its work.
int ScriptRuns::finish(int code)
{
    if (depth == 1 || code != TCL_OK)
        takeStopInput();
    const bool isStopped = stopDepth >= depth;
    const bool isCancelled = depth == 1 && code != TCL_OK && Tcl_Canceled(interp, 0) != TCL_OK;
    if (!isStopped && !isCancelled)
        return code;
    forgetCancellation();
    if (isStopped && code != TCL_OK)
        Tcl_SetObjResult(interp, Tcl_NewStringObj(cancellation::message, -1));
    stopDepth = 0;
    return code;
}

// Who stops in a pass meanwhile would stop what is evaluated next.
void ScriptRuns::forgetCancellation()
{
    const PassBlocker blocker;
    cancellation::clear(interp);
    timers->restore(interp);
}

void ScriptRuns::end()
{
    pacemaker->end();
    // A stop behind the end, while the result was being shown.
    if (stopDepth >= depth) {
        stopDepth = 0;
        forgetCancellation();
    }
    const bool wasCommand = depth == commandDepth;
    if (--depth > 0 && !wasCommand)
        return;
    hasStopped = false;
    commandDepth = 0;
    outermost.clear();
    tellOfEnd();
}

void ScriptRuns::tellOfBegin()
{
    if (!std::exchange(told, true))
        Q_EMIT begun();
}

void ScriptRuns::tellOfEnd()
{
    if (std::exchange(told, false))
        Q_EMIT ended();
}

int ScriptRuns::serve(ClientData self, Tcl_Interp *current, int code)
{
    auto *const runs = static_cast<ScriptRuns *>(self);
    runs->errors->forget();
    // The next beat marks again, and this interpreter will be watched.
    if (code == TCL_ERROR && asyncplace::isCaughtError(code, asyncplace::ofQuestion())) {
        if (current)
            runs->errors->watch(current);
        runs->pacemaker->served(0);
        return asyncplace::caughtError;
    }
    return runs->breathe(current, code);
}

// Without an interpreter, Tcl is between two events, and Qt's come by themselves.
int ScriptRuns::breathe(Tcl_Interp *current, int code)
{
    if (!current || inPass || blockers > 0 || depth == 0) {
        pacemaker->served(0);
        return code;
    }
    takeStopInput();
    tellOfBegin();
    QElapsedTimer duration;
    duration.start();
    Tcl_InterpState state = Tcl_SaveInterpState(current, code);
    const int mode = Tcl_SetServiceMode(TCL_SERVICE_NONE);
    inPass = true;
    pass();
    inPass = false;
    pacemaker->served(restAfter(duration.elapsed()));
    Tcl_SetServiceMode(mode);
    return Tcl_RestoreInterpState(current, state);
}

void ScriptRuns::stop()
{
    if (!isRunning())
        return;
    if (!isStopping()) {
        const PassBlocker blocker;
        timers->remember(interp);
    }
    // Whoever asks again wants all of them to end.
    stopDepth = std::exchange(hasStopped, true) ? 1 : depth;
    cancellation::cancel(interp);
    Q_EMIT stopping();
}

bool ScriptRuns::setWaiting(bool waits)
{
    if (waits && commandDepth == 0)
        tellOfEnd();
    return pacemaker->setWaiting(waits);
}

void ScriptRuns::stopOnInput(int descriptor)
{
    stopInput = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    connect(stopInput.get(), &QSocketNotifier::activated, this, &ScriptRuns::takeStopInput);
}

// The pass of a host may leave descriptors alone.
void ScriptRuns::takeStopInput()
{
    if (!stopInput || !stopInput->isEnabled())
        return;
    pollfd polled {int(stopInput->socket()), POLLIN, 0};
    if (::poll(&polled, 1, 0) <= 0)
        return;
    char bytes[64];
    if (::read(polled.fd, bytes, sizeof bytes) > 0)
        stop();
    else
        stopInput->setEnabled(false);
}
