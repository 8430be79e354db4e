#pragma once

#include "interp/export.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>

#include <tcl.h>

class ErrorWatch;
class Pacemaker;
class PendingTimers;
QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

// What Tcl runs on the GUI thread: watched, kept from freezing the window, and stopped. There is
// one in a process, made by Qtk_KeepWindowAlive; without it nothing is watched.
//
// While a command runs, a thread marks an asynchronous handler of Tcl's, and Tcl calls it where it
// is between two commands, or between two instructions of compiled code. There the host's pass is
// called, which is to let Qt's events come; Tcl serves none of its own there.
class TCLSCRIPTING_EXPORT ScriptRuns : public QObject
{
    Q_OBJECT

public:
    using Pass = std::function<void()>;

    // Null when the host does not want it.
    static ScriptRuns *instance();

    ScriptRuns(Tcl_Interp *interp, Pass pass);
    ~ScriptRuns() override;

    // Whether a command runs, or an event of Tcl's is being served.
    bool isRunning() const { return depth > 0; }
    // Whether something is to end, and has not ended yet.
    bool isStopping() const { return stopDepth > 0; }
    // Whether Tcl is at a safe point now, and the pass is under way.
    bool isInPass() const { return inPass; }

    // The outermost command, which an event may have let in while it waits; an empty text when
    // only an event runs.
    QString command() const { return outermost; }
    // For how long that has been running; in milliseconds.
    qint64 elapsed() const { return isRunning() ? sinceBegin.elapsed() : 0; }

    // Tcl waits in Qt's event loop, where Qt's events come by themselves, or goes on. Returns what
    // was before.
    bool setWaiting(bool waits);

    // Ends what runs, with the error "Script stopped", which no "catch" sees; as soon as Tcl is at
    // a safe point. Nothing when nothing runs. Of nested evaluations the innermost ends, and all of
    // them when it is called again. What "vwait" serves is no evaluation of its own: it ends with
    // the command that waits.
    void stop();
    // The same, when bytes can be read from a descriptor, as a signal handler writes them to a
    // pipe. Reads them. The descriptor stays the caller's.
    void stopOnInput(int descriptor);

    // No pass is called while one lives: an operation of the host's that must not be entered again.
    class TCLSCRIPTING_EXPORT PassBlocker
    {
    public:
        PassBlocker();
        ~PassBlocker();
        Q_DISABLE_COPY_MOVE(PassBlocker)
    };

Q_SIGNALS:
    // A command has begun; an event has been running for long enough to be noticed.
    void begun();
    // What was told of by begun has ended; or an event waits, and a command may come.
    void ended();
    // Somebody wants it to stop; what it waits for outside of Tcl should end.
    void stopping();

private:
    friend class Evaluation;

    static int serve(ClientData self, Tcl_Interp *interp, int code);
    void forgetCancellation();
    int breathe(Tcl_Interp *current, int code);
    void begin(const QString &command);
    int finish(int code);
    void end();
    void tellOfBegin();
    void tellOfEnd();
    void takeStopInput();

    Tcl_Interp *const interp;
    const Pass pass;
    Tcl_AsyncHandler handler;
    std::unique_ptr<ErrorWatch> errors;
    std::unique_ptr<Pacemaker> pacemaker;
    std::unique_ptr<QSocketNotifier> stopInput;
    static int blockers;
    QString outermost;
    QElapsedTimer sinceBegin;
    int depth = 0;
    int commandDepth = 0; // of the outermost command; 0 for none
    bool inPass = false;
    bool told = false;
    int stopDepth = 0; // of the outermost evaluation that is to end, of nested ones; 0 for none
    bool hasStopped = false; // one of those that are nested
    const std::unique_ptr<PendingTimers> timers; // of when it was stopped
};
