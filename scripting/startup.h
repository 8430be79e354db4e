#pragma once

#include "scripting/StartupListener.h"

// What is done for a console once it stands, with a window or without.
namespace TclScripting::startup {

// A host's function that is told of what startup.tcl does; see TclScriptManager.
void listen(const std::function<void(const StartupNews &)> &listener);
void log();

void warn(const QString &text);
void logSuccess();

// The session's folder of scripts, and the command that goes there.
QString scriptsFolder();
QString goToScripts();

// Goes there and runs startup.tcl. What goes wrong is shown by what the script itself wrote, and by
// a host that listens.
template <typename Console>
void runScript(Console &console)
{
    int code = TCL_OK;
    console.interpretCommand(goToScripts(), &code);
    StartupListener listener(scriptsFolder());
    if (listener.isListening()) {
        QObject::connect(&console, &Console::newConsoleOutput, &listener,
                         &StartupListener::tellOfOutput);
        QObject::connect(&console, &Console::newErrorOutput, &listener,
                         &StartupListener::tellOfOutput);
    }
    const QString text = console.interpretCommand(QStringLiteral("source startup.tcl"), &code);
    if (code != TCL_OK)
        listener.tellOfError(text);
}

} // namespace TclScripting::startup
