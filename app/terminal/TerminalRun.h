#pragma once

#include "app/terminal/CommandInterrupt.h"
#include "app/terminal/LineEditor.h"

#include <functional>

#include <tcl.h>

// A run in the terminal: commands are typed at a prompt, one after the other, until Ctrl+D or quit.
// Ctrl+C gives up the line, or stops the command that runs.
class TerminalRun : public QObject
{
    Q_OBJECT

public:
    // Runs a command in the console and returns its result's text; *code becomes Tcl's.
    using Console = std::function<QString(const QString &command, int *code)>;

    TerminalRun(const QString &sessionFolder, const Console &console);

    void run();

private:
    void runCommand(const QString &command);

    const Console console;
    Tcl_Interp *interp;
    CommandInterrupt interrupt;
    TerminalSignals terminalSignals;
    LineEditor editor;
};
