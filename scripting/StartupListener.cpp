#include "scripting/StartupListener.h"

#include "interp/commandsManager.h"
#include "interp/ScriptRuns.h"
#include "interp/tcltext.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace TclScripting {

namespace {

// The line of the script that runs now, asked for from within one of its commands: the first
// frame is the command that reads it, the second the script's own.
int lineOfScript(Tcl_Interp *interp)
{
    Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    const ScriptRuns::PassBlocker blocker;
    const bool known = Tcl_Eval(interp, "dict get [info frame 2] line") == TCL_OK;
    const int line = known ? tcltext::result(interp).toInt() : 0;
    Tcl_RestoreInterpState(interp, state);
    return line;
}

// The stack of an error names the place in the script last.
int lineOfError(Tcl_Interp *interp)
{
    static const QRegularExpression place(u"\\(file \"[^\"]*\" line (\\d+)\\)"_s);
    const QString stack = tcltext::fromTcl(Tcl_GetVar(interp, "errorInfo", TCL_GLOBAL_ONLY));
    int line = 0;
    for (const QRegularExpressionMatch &match : place.globalMatch(stack))
        line = match.captured(1).toInt();
    return line;
}

} // namespace

std::function<void(const StartupNews &)> &startupListener()
{
    static std::function<void(const StartupNews &)> listener;
    return listener;
}

StartupListener::StartupListener(const QString &scriptsFolder)
    : interp(commandsManager::getInstance(nullptr)->interp),
      listening(startupListener() && QFile::exists(scriptsFolder + u"/startup.tcl"_s))
{
}

void StartupListener::tellOfOutput(const QString &text)
{
    startupListener()({lineOfScript(interp), text});
}

void StartupListener::tellOfError(const QString &text)
{
    if (listening)
        startupListener()({lineOfError(interp), text});
}

} // namespace TclScripting
