#include "app/process/programend.h"

#include <MorvalenCore/DesignManager.h>

#include <algorithm>
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

// Called by Tcl_Exit in place of its own work, which leave() then does.
void leaveByExit(ClientData status)
{
    // Taken away first: what it does may let another script end the program.
    if (const auto hook = std::exchange(exitHook(), {}))
        hook();
    if (!status)
        save();
    leave(int(reinterpret_cast<intptr_t>(status)));
}

} // namespace

void prepare(Tcl_Interp *interp)
{
    // The console runs "dbgExit" when "exit" is typed. It is not in the registry: "help" lists
    // "quit".
    Tcl_CmdInfo quit;
    if (Tcl_GetCommandInfo(interp, "quit", &quit))
        Tcl_CreateCommand(interp, "dbgExit", quit.proc, quit.clientData, nullptr);
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
    Tcl_SetExitProc(nullptr);
    Tcl_Exit(status);
    std::abort(); // Tcl_Exit does not come back.
}

} // namespace programend
