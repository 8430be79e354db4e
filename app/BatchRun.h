#pragma once

#include "app/CommandLine.h"

#include <functional>

#include <tcl.h>

// A run without a window: a script, or commands from the command line. Their output goes to the
// process's own standard output and error, and nothing is ever asked.
class BatchRun
{
public:
    // Runs a command in the console and returns its result's text; *code becomes Tcl's.
    using Console = std::function<QString(const QString &command, int *code)>;

    BatchRun(const CommandLine &line, const Console &console);

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
    const Console console;
    Tcl_Interp *interp;
};
