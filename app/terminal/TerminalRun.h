#pragma once

#include "app/terminal/CommandInterrupt.h"
#include "app/terminal/LineEditor.h"

#include <tcl.h>

namespace TclScripting {
class TclScriptManager;
}

// A run in the terminal: commands are typed at a prompt, one after the other, until Ctrl+D or quit.
// Ctrl+C gives up the line, or stops the command that runs.
class TerminalRun : public QObject
{
    Q_OBJECT

public:
    // The manager must outlive the run.
    TerminalRun(const QString &sessionFolder, TclScripting::TclScriptManager &manager);

    void run();

private:
    void runCommand(const QString &command);

    TclScripting::TclScriptManager &manager;
    Tcl_Interp *interp;
    CommandInterrupt interrupt;
    TerminalSignals terminalSignals;
    LineEditor editor;
};
