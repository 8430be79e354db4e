#include "console/consolecommands.h"

using namespace Qt::Literals::StringLiterals;

namespace consolecommands {

namespace {

// Results: TCL_ERROR; the usage text with the command's name in it.
int usage(Tcl_Interp *interp, const char *name, const QString &text)
{
    tcltext::appendResult(interp, text.arg(tcltext::fromTcl(name)));
    return TCL_ERROR;
}

} // namespace

int showHistory(Tcl_Interp *interp, int argc, const char **argv, const QStringList &entries)
{
    Tcl_ResetResult(interp);
    if (argc != 1)
        return usage(interp, argv[0], u"Usage: %1\n"_s);
    QString list;
    for (qsizetype i = 0; i < entries.size(); ++i)
        list += u"%1\t%2\n"_s.arg(QString::number(i + 1), entries.at(i));
    tcltext::appendResult(interp, list);
    return TCL_OK;
}

int setPrompt(Tcl_Interp *interp, int argc, const char **argv,
              const std::function<void(const QString &prompt)> &set)
{
    Tcl_ResetResult(interp);
    if (argc != 2)
        return usage(interp, argv[0], u"Usage: %1 new_prompt\n"_s);
    set(tcltext::fromTcl(argv[1]));
    return TCL_OK;
}

int saveScript(Tcl_Interp *interp, int argc, const char **argv,
               const std::function<int(const QString &fileName)> &save)
{
    Tcl_ResetResult(interp);
    if (argc != 2)
        return usage(interp, argv[0], u"Usage: %1 script_file_name\n"_s);
    // Inverted on purpose: scripts rely on an error for a file that was written.
    return save(tcltext::fromTcl(argv[1])) == 0 ? TCL_ERROR : TCL_OK;
}

} // namespace consolecommands
