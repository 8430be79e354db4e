#pragma once

#include "console/QConsole.h"

#include <QMutex>

#include <tcl.h>

// The console of the process's Tcl interpreter. It runs what is typed, completes command names,
// shows what scripts write to standard output and standard error, and brings the Tcl commands
// history, set_prompt and save_script. There is one per process, created by the first call of
// getInstance; it lives as long as its parent.
//
// One command runs at a time: another one that the event loop lets in meanwhile is refused.
class TCLSCRIPTING_EXPORT QtclConsole : public QConsole
{
    Q_OBJECT

public:
    // The console. Only the first call's arguments count.
    static QtclConsole *getInstance(QWidget *parent, const QString &welcomeText);

    QtclConsole(QWidget *parent, const QString &welcomeText);
    ~QtclConsole() override;

    bool isCommandComplete(const QString &command) override;

    // Runs a command in silence: its result is returned, not shown. *res becomes Tcl's code, or 1
    // when the command is refused because another one is running. The word exit alone runs dbgExit.
    QString interpretCommand(const QString &command, int *res) override;

    // The commands whose names begin with what stands behind the last bracket, brace, semicolon or
    // line feed of cmd.
    QStringList suggestCommand(const QString &cmd, QString &prefix) override;

    // Whether Tcl runs a command or serves an event, if the host keeps its window alive.
    bool isBusy() const override;
    // Types what was kept once nothing runs any more.
    void keepTypedKeys() override;

    void logConsoleOutput(const QString &output);
    void logErrorOutput(const QString &output);

    // Show and emit what a script wrote to standard output and to standard error.
    void showOutput(const QString &output);
    void showError(const QString &output);

    // The Tcl commands history, set_prompt and save_script.
    int showHistory(void *clientData, Tcl_Interp *interp, int argc, const char **argv);
    int setPrompt(void *clientData, Tcl_Interp *interp, int argc, const char **argv);
    int saveScript(void *clientData, Tcl_Interp *interp, int argc, const char **argv);

    using QConsole::saveScript;
    using QConsole::setPrompt;

Q_SIGNALS:
    // A script wrote to standard output.
    void newConsoleOutput(const QString &output);
    // A script wrote to standard error.
    void newErrorOutput(const QString &output);

private:
    Tcl_Interp *interp = nullptr; // the registry's
    QMutex mutex; // held while a command runs

    static QtclConsole *theInstance;
};
