#include "interp/servicemode.h"

#include <tcl.h>

namespace servicemode {

namespace {

bool interpreterReady = false;
bool notifierInstalled = false;

void become(bool &party)
{
    if (party)
        return;
    party = true;
    if (isOn())
        Tcl_SetServiceMode(TCL_SERVICE_ALL);
}

} // namespace

void interpreterIsReady() { become(interpreterReady); }

void notifierIsInstalled() { become(notifierInstalled); }

bool isOn() { return interpreterReady && notifierInstalled; }

} // namespace servicemode
