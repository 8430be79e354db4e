#pragma once

#include "interp/TclCallBack.h"

#include <functional>

// The Tcl commands history, set_prompt and save_script, which every console brings.
namespace consolecommands {

int showHistory(Tcl_Interp *interp, int argc, const char **argv, const QStringList &entries);
int setPrompt(Tcl_Interp *interp, int argc, const char **argv,
              const std::function<void(const QString &prompt)> &set);
// save returns 0 when the file was written.
int saveScript(Tcl_Interp *interp, int argc, const char **argv,
               const std::function<int(const QString &fileName)> &save);

// Makes the commands. The console has them as members.
template <typename Console>
void bind(Console *console)
{
    using Binding = TclCallBack<Console>;
    Binding::registerMethod(console, "history", &Console::showHistory, "Shows the commands history",
                            nullptr);
    Binding::registerMethod(console, "set_prompt", &Console::setPrompt, "Set a new prompt",
                            nullptr);
    Binding::registerMethod(console, "save_script", &Console::saveScript,
                            "Saves a script of executed commands", nullptr);
}

// Removes them.
template <typename Console>
void unbind()
{
    const QStringList names = TclCallBack<Console>::methodNames;
    for (const QString &name : names)
        commandsManager::getInstance(nullptr)->unregisterFunction(name.toUtf8().constData());
}

} // namespace consolecommands
