#pragma once

#include "app/CommandLine.h"

#include <tcl.h>

namespace TclScripting {
class TclScriptManager;
}

// A run without a window: a script, or commands from the command line. Their output goes to the
// process's own standard output and error, and nothing is ever asked.
class BatchRun
{
public:
    // The manager must outlive the run.
    BatchRun(const CommandLine &line, TclScripting::TclScriptManager &manager);

    // Gives Tcl the process's own streams, and the folder of the call; run() does that itself.
    void prepare();

    // The exit status: 0 when all went well, what was changed being saved then; 1 when a command
    // failed, with the reason on standard error.
    int run();

    // Whether the script can be read.
    static Qtilities::Core::Status checkScript(const QString &script);

private:
    void returnToFolderOfCall();
    bool runScript();
    bool runCommands();
    void setArguments();

    const CommandLine &line;
    TclScripting::TclScriptManager &manager;
    Tcl_Interp *interp;
};
