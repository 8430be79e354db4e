#pragma once

#include "console/CommandGate.h"
#include "console/CommandHistory.h"
#include "console/RecordedScript.h"

#include <QObject>

// The console of a program without windows: one command at a time, the same Tcl commands as
// QtclConsole, its history and its recorded script. What scripts write is told by the signals until
// the program gives Tcl streams of its own. Needs Qt's core only. There is one in a process.
class PlainConsole : public QObject
{
    Q_OBJECT

public:
    PlainConsole();
    ~PlainConsole() override;

    // As QtclConsole runs it.
    QString interpretCommand(const QString &command, int *res);

    // The Tcl commands history, set_prompt and save_script. There is no prompt to be seen.
    int showHistory(void *clientData, Tcl_Interp *interp, int argc, const char **argv);
    int setPrompt(void *clientData, Tcl_Interp *interp, int argc, const char **argv);
    int saveScript(void *clientData, Tcl_Interp *interp, int argc, const char **argv);

Q_SIGNALS:
    // A script wrote to standard output.
    void newConsoleOutput(const QString &output);
    // A script wrote to standard error.
    void newErrorOutput(const QString &output);

private:
    Tcl_Interp *interp = nullptr; // the registry's
    CommandGate gate;
    CommandHistory history;
    RecordedScript script;
};
