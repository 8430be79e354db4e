#include "console/CommandGate.h"

#include "interp/errorstack.h"
#include "interp/Evaluation.h"
#include "interp/ScriptRuns.h"
#include "interp/tcltext.h"

#include <QPointer>

using namespace Qt::Literals::StringLiterals;

CommandGate::~CommandGate()
{
    // It may be destroyed by the command that it runs; a mutex must not be while it is locked.
    Q_UNUSED(mutex.tryLock())
    mutex.unlock();
}

QString CommandGate::run(Tcl_Interp *interp, const QString &command, int *res, const Ways &ways)
{
    // In a pass, Tcl is between two commands of something else.
    const ScriptRuns *runs = ScriptRuns::instance();
    if ((runs && runs->isInPass()) || !mutex.tryLock()) {
        *res = 1;
        return u"Command cannot be executed!"_s;
    }
    // The command may close the window that owns the console.
    const QPointer<QObject> alive(ways.console);
    QString result;
    if (!command.isEmpty()) {
        // Tcl's own exit would end the program without asking.
        const QString torun = command == "exit"_L1 ? u"dbgExit"_s : command;
        Evaluation evaluation(torun);
        *res = evaluation.finish(Tcl_Eval(interp, tcltext::toTcl(torun).constData()));
        result = tcltext::result(interp);
        if (alive)
            ways.endOutput();
        if (*res != TCL_OK)
            errorstack::tell(interp, *res);
        if (alive)
            ways.take(torun);
    }
    if (alive)
        mutex.unlock();
    return result;
}
