#pragma once

#include "interp/export.h"

#include <MorvalenCore/AbstractScriptedAction.h>
#include <Qtilities/FactoryItem.h>

#include <memory>

namespace TclScripting {

struct TclScriptedActionPrivate;

// An action that runs a Tcl file in the console, whole and as one command, and reports start and
// outcome in the log; with an execution log it has a window of its own that shows what the script
// wrote. The host makes one for a script file through the factory, and owns it; it may be deleted
// while its script runs.
class TCLSCRIPTING_EXPORT TclScriptedAction : public MorvalenCore::AbstractScriptedAction
{
    Q_OBJECT

public:
    explicit TclScriptedAction(QObject *parent = nullptr);
    ~TclScriptedAction() override;

    // Makes actions; the host's design manager knows it by the tag "text/x-tcl".
    static const Qtilities::Core::FactoryItem<QObject, TclScriptedAction> factory;
    static Qtilities::Core::InstanceFactoryInfo staticInstanceFactoryInfo();

    // Whether the execution logs also show what is told to everybody while their script runs, such
    // as what the script itself puts into the system's log. Usually they do not.
    static void setLogsHoldMessages(bool hold);

    Qtilities::Core::InstanceFactoryInfo instanceFactoryInfo() const override;

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

    void execute() override;

    // Runs the script. 0 when it ran, whatever came of it: an error of the script's is in the log
    // only. -1 with *ok false and *errorMessage set when it could not start: the file is missing
    // or empty, or a run of this action has not ended. An action whose file was empty once never
    // runs again.
    int execute(bool *ok, QString *errorMessage) override;

public Q_SLOTS:
    // Log what the script writes to the action's execution log, if there is one.
    void handleNewConsoleOutput(const QString &text);
    void handleNewErrorOutput(const QString &text);

private:
    void showLog();
    void run(const QString &script, const QString &contents);

    std::unique_ptr<TclScriptedActionPrivate> d;
};

} // namespace TclScripting
