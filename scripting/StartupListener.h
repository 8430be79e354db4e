#pragma once

#include "scripting/TclScriptManager.h"

namespace TclScripting {

// The host's function that is told of what startup.tcl does; empty when there is none.
std::function<void(const StartupNews &)> &startupListener();

// Tells that function of what the interpreter's console hands it, as long as the object lives,
// which is while startup.tcl runs. Does nothing when there is no function.
class StartupListener : public QObject
{
    Q_OBJECT

public:
    explicit StartupListener(const QString &scriptsFolder);

    // Whether there is a function to tell and a script to tell of.
    bool isListening() const { return listening; }

    // A text that the script wrote, while it runs.
    void tellOfOutput(const QString &text);
    // The text of the error that has ended the script.
    void tellOfError(const QString &text);

private:
    Tcl_Interp *interp;
    bool listening;
};

} // namespace TclScripting
