#pragma once

#include "console/QtclConsole.h"
#include "scripting/TclScriptManager.h"

namespace TclScripting {

// The host's function that is told of what startup.tcl does; empty when there is none.
std::function<void(const StartupNews &)> &startupListener();

// Tells that function of what the console's interpreter writes as long as the object lives, which
// is while startup.tcl runs. Does nothing when there is no function or no such script.
class StartupListener : public QObject
{
    Q_OBJECT

public:
    StartupListener(QtclConsole &console, const QString &scriptsFolder);

    // The text of the error that has ended the script.
    void tellOfError(const QString &text);

private:
    void tellOfOutput(const QString &text);

    Tcl_Interp *interp;
    bool isListening;
};

} // namespace TclScripting
