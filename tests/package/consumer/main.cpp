// The smallest host: an application object, a session folder, the scripting environment, and a
// command of its own.

#include "interp/commandsManager.h"
#include "interp/tcltext.h"
#include "scripting/TclScriptManager.h"
#include "scripting/version.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QTemporaryDir>

#include <cstdio>

static int multiply(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    if (argc != 3)
        return TCL_ERROR;
    const int product = tcltext::fromTcl(argv[1]).toInt() * tcltext::fromTcl(argv[2]).toInt();
    Tcl_ResetResult(interp);
    tcltext::appendResult(interp, QString::number(product));
    return TCL_OK;
}

int main(int argc, char **argv)
{
    Qtilities::CoreGui::QtilitiesApplication application(argc, argv);
    QTemporaryDir session;
    application.setApplicationSessionPath(session.path());

    TclScripting::TclScriptManager manager(nullptr);
    commandsManager::getInstance(nullptr)->registerFunction("multiply", multiply,
                                                            "Multiplies two numbers", nullptr);

    std::printf("TclScripting %s\n", TCLSCRIPTING_VERSION);
    int code = 0;
    const QString product = manager.execCommad(QStringLiteral("multiply 6 7"), &code);
    std::printf("6 * 7 = %s\n", qPrintable(product));
    const QString refusal = manager.execCommad(QStringLiteral("files list"), &code);
    std::printf("\"consumer\" says: %s\n", qPrintable(refusal));
    return code == TCL_ERROR ? 0 : 1;
}
