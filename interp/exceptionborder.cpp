#include "interp/exceptionborder.h"

#include "interp/tcltext.h"

#include <QVarLengthArray>

#include <exception>

using namespace Qt::Literals::StringLiterals;

namespace exceptionborder {

namespace {

int refuse(Tcl_Interp *interp, const char *command, const QString &reason)
{
    Tcl_ResetResult(interp);
    tcltext::appendResult(
        interp, u"\"%1\" ended with an exception: %2"_s.arg(tcltext::fromTcl(command), reason));
    return TCL_ERROR;
}

// Results: what the command's procedure of the string form returns; TCL_ERROR when it throws.
// Side effects: those of the procedure.
int invoke(ClientData self, Tcl_Interp *interp, int objc, Tcl_Obj *const objv[])
{
    Tcl_CmdInfo info = {};
    Tcl_GetCommandInfoFromToken(static_cast<Tcl_Command>(self), &info);
    QVarLengthArray<const char *, 32> argv(objc + 1);
    for (int i = 0; i < objc; ++i)
        argv[i] = Tcl_GetString(objv[i]);
    argv[objc] = nullptr;
    try {
        return info.proc(info.clientData, interp, objc, argv.data());
    } catch (const std::exception &exception) {
        return refuse(interp, argv[0], QString::fromUtf8(exception.what()));
    } catch (...) {
        return refuse(interp, argv[0], u"of an unknown kind"_s);
    }
}

} // namespace

void guard(Tcl_Command command)
{
    Tcl_CmdInfo info = {};
    if (!Tcl_GetCommandInfoFromToken(command, &info))
        return;
    info.objProc = invoke;
    info.objClientData = command;
    Tcl_SetCommandInfoFromToken(command, &info);
}

} // namespace exceptionborder
