#pragma once

#include <QMutex>
#include <QObject>

#include <functional>

#include <tcl.h>

// Lets the commands of a console through to Tcl, one at a time.
class CommandGate
{
public:
    // Whose command it is. Once the console is gone, nothing of it is called.
    struct Ways
    {
        QObject *console;
        std::function<void()> endOutput; // ends the line that the command was writing
        std::function<void(const QString &command)> take; // the command as it was run
    };

    CommandGate() = default;
    ~CommandGate();
    Q_DISABLE_COPY_MOVE(CommandGate)

    // Runs a command and returns its result's text. *res becomes Tcl's code, or 1 when the command
    // is refused because another one is running. An empty one does nothing, and exit alone is
    // dbgExit.
    QString run(Tcl_Interp *interp, const QString &command, int *res, const Ways &ways);

private:
    QMutex mutex; // held while a command runs
};
