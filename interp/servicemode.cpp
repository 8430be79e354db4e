#include "interp/servicemode.h"

#include <tcl.h>

namespace servicemode {

namespace {

bool interpreter = false;
bool notifier = false;

void become(bool &party)
{
    if (party)
        return;
    party = true;
    if (interpreter && notifier)
        Tcl_SetServiceMode(TCL_SERVICE_ALL);
}

} // namespace

void interpreterIsReady() { become(interpreter); }

void notifierIsInstalled() { become(notifier); }

} // namespace servicemode
