#include "app/process/programend.h"

#include <MorvalenCore/DesignManager.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
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

// What another thread's end of the program leaves to the GUI thread.
struct EndElsewhere
{
    Tcl_ThreadId guiThread = nullptr;
    Tcl_AsyncHandler handler = nullptr;
    std::atomic<ClientData> status = nullptr;
    std::atomic_flag isWanted;
    std::atomic_bool isTaken = false; // by the GUI thread, which ends the process now
};

constexpr int takingTime = 300; // milliseconds

EndElsewhere &endElsewhere()
{
    static auto *const end = new EndElsewhere; // other threads may outlive the rest
    return *end;
}

// The thread that asks stands still until the process has ended, for an end of its own would get in
// the way. But where the GUI thread does not come, it may be waiting for this one, which then ends.
// The first status counts.
[[noreturn]] void leaveOnGuiThread(ClientData status)
{
    EndElsewhere &end = endElsewhere();
    if (!end.isWanted.test_and_set()) {
        end.status = status;
        Tcl_AsyncMark(end.handler);
    }
    for (int waited = 0; waited < takingTime || end.isTaken; waited += 10)
        Tcl_Sleep(10);
    Tcl_ExitThread(int(reinterpret_cast<intptr_t>(status)));
    std::abort(); // Tcl_ExitThread does not come back.
}

// Called by Tcl_Exit in place of its own work, which leave() then does.
void leaveByExit(ClientData status)
{
    if (Tcl_GetCurrentThread() != endElsewhere().guiThread)
        leaveOnGuiThread(status);
    // Taken away first: what it does may let another script end the program.
    if (const auto hook = std::exchange(exitHook(), {}))
        hook();
    const bool isSaved = status || save();
    leave(isSaved ? int(reinterpret_cast<intptr_t>(status)) : 1);
}

// Stands among the exit handlers for a thread that asked for the end after leave() took the
// procedure away.
void standStill(ClientData)
{
    if (Tcl_GetCurrentThread() == endElsewhere().guiThread)
        return;
    for (;;)
        Tcl_Sleep(1000);
}

// Called by Tcl_Exit while the process ends already.
void leaveOnce(ClientData status)
{
    standStill(nullptr);
    Tcl_SetExitProc(nullptr);
    Tcl_Exit(int(reinterpret_cast<intptr_t>(status)));
}

// The first exit handler that runs: from here on no other thread goes Tcl's own way out, in which
// two threads crash each other. Those that have begun to are given the time to come here.
void keepOthersIn(ClientData)
{
    standStill(nullptr);
    Tcl_SetExitProc(leaveOnce);
    if (!endElsewhere().isWanted.test())
        return;
    Tcl_CreateExitHandler(standStill, nullptr);
    Tcl_Sleep(1);
    Tcl_DeleteExitHandler(standStill, nullptr);
}

} // namespace

void prepare(Tcl_Interp *interp)
{
    // The console runs "dbgExit" when "exit" is typed. It is not in the registry: "help" lists
    // "quit".
    Tcl_CmdInfo quit;
    if (Tcl_GetCommandInfo(interp, "quit", &quit))
        Tcl_CreateCommand(interp, "dbgExit", quit.proc, quit.clientData, nullptr);
    endElsewhere().guiThread = Tcl_GetCurrentThread();
    if (!endElsewhere().handler)
        endElsewhere().handler = Tcl_AsyncCreate(
            [](ClientData, Tcl_Interp *, int code) {
                endElsewhere().isTaken = true;
                leaveByExit(endElsewhere().status);
                return code;
            },
            nullptr);
    Tcl_SetExitProc(leaveByExit);
}

void setExitHook(std::function<void()> hook) { exitHook() = std::move(hook); }

bool save()
{
    int reason = DesignManager::ProgramClosed;
    DesignManager::instance()->prepareForShutdown(reason);
    const QStringList ids = DesignManager::instance()->openDesignIds();
    return std::none_of(ids.begin(), ids.end(), isUnsaved);
}

void leave(int status)
{
    endElsewhere().isTaken = true;
    Tcl_DeleteExitHandler(keepOthersIn, nullptr);
    Tcl_CreateExitHandler(keepOthersIn, nullptr);
    Tcl_SetExitProc(nullptr); // With it, Tcl_Exit would come back here.
    Tcl_Exit(status);
    std::abort(); // Tcl_Exit does not come back.
}

} // namespace programend
