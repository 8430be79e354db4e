#include "console/PlainConsole.h"

#include "console/consolecommands.h"
#include "console/tclchannels.h"

PlainConsole::PlainConsole()
{
    consolecommands::bind(this);
    interp = commandsManager::getInstance(nullptr)->interp;
    const auto tell = [this](bool isError, const QString &text) {
        if (isError)
            Q_EMIT newErrorOutput(text);
        else
            Q_EMIT newConsoleOutput(text);
    };
    tclchannels::install(interp, {.console = this, .show = tell, .gather = {}});
}

PlainConsole::~PlainConsole() { consolecommands::unbind<PlainConsole>(); }

QString PlainConsole::interpretCommand(const QString &command, int *res)
{
    const auto take = [this, res](const QString &run) {
        if (*res == TCL_OK)
            script.commands.append(run);
        history.add(run);
    };
    return gate.run(interp, command, res, {.console = this, .endOutput = [] {}, .take = take});
}

int PlainConsole::showHistory(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    return consolecommands::showHistory(commandInterp, argc, argv, history.entries);
}

int PlainConsole::setPrompt(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    return consolecommands::setPrompt(commandInterp, argc, argv, [](const QString &) {});
}

int PlainConsole::saveScript(void *, Tcl_Interp *commandInterp, int argc, const char **argv)
{
    return consolecommands::saveScript(commandInterp, argc, argv, [this](const QString &fileName) {
        return script.save(fileName);
    });
}
