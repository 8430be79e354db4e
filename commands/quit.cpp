#include "commands/ArgumentCount.h"
#include "commands/commands.h"
#include "commands/Outcome.h"

#include <MorvalenCore/DesignManager.h>

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;
using commands::Arguments;
using commands::Outcome;
using MorvalenCore::DesignManager;

namespace {

Outcome quit(const Arguments &arguments)
{
    // The text speaks of a parameter q, but what is read is an exit code.
    if (!commands::atMost(2).accepts(arguments.count()))
        return Outcome::error(u"Supported quit parameters are just \"q\""_s);

    int reason = DesignManager::QuitCommand;
    DesignManager::instance()->prepareForShutdown(reason);

    bool isNumber = false;
    const int code = arguments[1].toInt(&isNumber, 10);
    if (isNumber)
        QCoreApplication::exit(code);
    else
        QCoreApplication::quit();
    // Runs Tcl's exit handlers, which flush open files, and ends the process.
    Tcl_Exit(isNumber ? code : 0);
}

} // namespace

int CallQuit(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, quit);
}
