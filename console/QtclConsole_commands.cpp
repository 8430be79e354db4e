#include "console/QtclConsole.h"

#include "interp/tcltext.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// Results: TCL_ERROR; the usage text with the command's name in it.
int usage(Tcl_Interp *interp, const char *name, const QString &text)
{
    tcltext::appendResult(interp, text.arg(tcltext::fromTcl(name)));
    return TCL_ERROR;
}

} // namespace

int QtclConsole::showHistory(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    Tcl_ResetResult(commandInterp);
    if (argc != 1)
        return usage(commandInterp, argv[0], u"Usage: %1\n"_s);
    QString list;
    for (qsizetype i = 0; i < history.size(); ++i)
        list += u"%1\t%2\n"_s.arg(QString::number(i + 1), history.at(i));
    tcltext::appendResult(commandInterp, list);
    return TCL_OK;
}

int QtclConsole::setPrompt(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    Tcl_ResetResult(commandInterp);
    if (argc != 2)
        return usage(commandInterp, argv[0], u"Usage: %1 new_prompt\n"_s);
    QConsole::setPrompt(tcltext::fromTcl(argv[1]), false);
    return TCL_OK;
}

int QtclConsole::saveScript(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    Tcl_ResetResult(commandInterp);
    if (argc != 2)
        return usage(commandInterp, argv[0], u"Usage: %1 script_file_name\n"_s);
    // Inverted on purpose: scripts rely on an error for a file that was written.
    return QConsole::saveScript(tcltext::fromTcl(argv[1])) == 0 ? TCL_ERROR : TCL_OK;
}
