#include "interp/ServedEvents.h"

#include "interp/NotifierState.h"
#include "interp/TclTimeNotifier.h"

#include <tcl.h>

ServedEvents::ServedEvents()
    : isNeeded(notifier && notifier->resting && Tcl_GetServiceMode() == TCL_SERVICE_NONE)
{
    if (!isNeeded)
        return;
    Tcl_SetServiceMode(TCL_SERVICE_ALL);
    // What has come so far has been turned away.
    notifier->timeNotifier->serveLater();
}

ServedEvents::~ServedEvents()
{
    if (isNeeded)
        Tcl_SetServiceMode(TCL_SERVICE_NONE);
}
