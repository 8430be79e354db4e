#include "app/process/programend.h"

#include "app/process/qtmessages.h"

#include <MorvalenCore/DesignManager.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <mutex>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;

namespace programend {

namespace {

bool isUnsaved(const QString &id)
{
    const auto *design = DesignManager::instance()->design(id);
    return design && design->isModified() && !design->componentFileName().isEmpty();
}

std::function<void()> &exitHook()
{
    static std::function<void()> hook;
    return hook;
}

// What the threads that end the program have in common.
struct End
{
    Tcl_ThreadId guiThread = nullptr;
    Tcl_AsyncHandler handler = nullptr; // guarded by the mutex until the GUI thread ends
    std::mutex mutex;
    ClientData statusElsewhere = nullptr; // of the first other thread that asked
    bool isWanted = false;
    std::atomic_bool isTaken = false; // by the GUI thread, which ends the process now
    bool isLeaving = false; // the handlers of exit run
    bool isFinishing = false; // they have run
    int status = 0;
};

constexpr int takingTime = 300; // milliseconds

End &end()
{
    static auto *const theEnd = new End; // other threads may outlive the rest
    return *theEnd;
}

void askGuiThread(ClientData status)
{
    const std::lock_guard lock(end().mutex);
    if (end().isWanted || end().isTaken)
        return;
    end().isWanted = true;
    end().statusElsewhere = status;
    if (end().handler)
        Tcl_AsyncMark(end().handler);
}

// The thread that asks stands still until the process has ended, for an end of its own would get in
// the way. But where the GUI thread does not come, it may be waiting for this one, which then ends.
// The first status counts.
[[noreturn]] void leaveOnGuiThread(ClientData status)
{
    askGuiThread(status);
    for (int waited = 0; waited < takingTime || end().isTaken; waited += 10)
        Tcl_Sleep(10);
    Tcl_ExitThread(int(reinterpret_cast<intptr_t>(status)));
    std::abort(); // Tcl_ExitThread does not come back.
}

void take()
{
    const std::lock_guard lock(end().mutex);
    end().isTaken = true;
}

// Called by Tcl_Exit in place of its own work, which leave() then does.
void leaveByExit(ClientData status)
{
    if (Tcl_GetCurrentThread() != end().guiThread)
        leaveOnGuiThread(status);
    const int wanted = int(reinterpret_cast<intptr_t>(status));
    if (end().isLeaving) // One of the handlers asks for the end.
        leave(wanted);
    take();
    // Taken away first: what it does may let another script end the program.
    if (const auto hook = std::exchange(exitHook(), {}))
        hook();
    const bool isSaved = wanted || save();
    leave(isSaved ? wanted : 1);
}

// The last of the handlers of exit. It does what Tcl_Exit does behind them, in this thread only.
[[noreturn]] void finish(ClientData)
{
    end().isFinishing = true;
    Tcl_FinalizeThread();
    qtmessages::dropFromNowOn();
    std::exit(end().status);
}

int leaveForThread(ClientData, Tcl_Interp *, int)
{
    leaveByExit(end().statusElsewhere);
    std::abort(); // leaveByExit does not come back on the GUI thread.
}

} // namespace

void begin()
{
    end().guiThread = Tcl_GetCurrentThread();
    Tcl_CreateExitHandler(finish, nullptr);
    Tcl_SetExitProc(leaveByExit); // The start-up script may end the program already.
}

void prepare(Tcl_Interp *interp)
{
    // The console runs "dbgExit" when "exit" is typed. It is not in the registry: "help" lists
    // "quit".
    Tcl_CmdInfo quit;
    if (Tcl_GetCommandInfo(interp, "quit", &quit))
        Tcl_CreateCommand(interp, "dbgExit", quit.proc, quit.clientData, nullptr);
    const std::lock_guard lock(end().mutex);
    if (!end().handler)
        end().handler = Tcl_AsyncCreate(leaveForThread, nullptr);
    if (end().isWanted) // since the start-up script
        Tcl_AsyncMark(end().handler);
}

void setExitHook(std::function<void()> hook) { exitHook() = std::move(hook); }

bool save()
{
    int reason = DesignManager::ProgramClosed;
    DesignManager::instance()->prepareForShutdown(reason);
    const QStringList ids = DesignManager::instance()->openDesignIds();
    return std::none_of(ids.begin(), ids.end(), isUnsaved);
}

// Not by Tcl_Exit: it does its own work only while there is no procedure in its place, and then for
// whichever thread calls it. Two threads in there crash each other.
void leave(int status)
{
    take();
    end().status = status;
    end().isLeaving = true;
    if (!end().isFinishing)
        Tcl_Finalize(); // Runs the handlers, the last of which does not come back.
    finish(nullptr);
}

} // namespace programend
