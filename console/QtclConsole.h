#pragma once

#include "console/QConsole.h"

#include <QPointer>

#include <functional>
#include <memory>

#include <tcl.h>

class CommandGate;
class OutputLine;

// The console of the process's Tcl interpreter. It runs what is typed, completes command names,
// shows what scripts write to standard output and standard error, and brings the Tcl commands
// history, set_prompt and save_script. There is one at a time, created by getInstance when there is
// none; it lives as long as its parent, so its window should be one that stays.
//
// One command runs at a time: another one that the event loop lets in meanwhile is refused.
class TCLSCRIPTING_EXPORT QtclConsole : public QConsole
{
    Q_OBJECT

public:
    // The console. The arguments count only when there is none yet, or none any more.
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

    // The candidates for a word behind a command's name: variables, elements of arrays,
    // subcommands and files. For the feature CompletionPopup.
    QStringList suggestWord(const QString &text, QString &prefix) override;

    // Gives the console the words that may come next in a command, of which the ones given are
    // there already. For commands whose subcommands the interpreter does not know.
    void setNextWords(const std::function<QStringList(const QStringList &words)> &nextWords);

    // Whether standard output and standard error are gathered into whole lines: "puts {}" writes an
    // empty line and "puts -nonewline" a part of one. At first they are not: each channel shows
    // every other text that reaches it.
    void setWholeLines(bool whole);

    // Takes what a script wrote, if whole lines are gathered; returns whether that is so.
    bool gather(bool isError, const QByteArray &bytes);

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
    std::unique_ptr<OutputLine> line(const QColor &color,
                                     void (QtclConsole::*tell)(const QString &));

    Tcl_Interp *interp = nullptr; // the registry's
    std::unique_ptr<CommandGate> gate;
    std::function<QStringList(const QStringList &)> wordsBehind;
    std::unique_ptr<OutputLine> outputLine; // null unless whole lines are gathered
    std::unique_ptr<OutputLine> errorLine;

    static QPointer<QtclConsole> theInstance;
};
