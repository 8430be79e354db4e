#include "interp/servicemode.h"

#include <utility>

#include <tcl.h>

namespace servicemode {

namespace {

bool interpreterReady = false;
bool notifierInstalled = false;

std::function<void()> &lateNotifier()
{
    static std::function<void()> told;
    return told;
}

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

void notifierIsInstalled()
{
    become(notifierInstalled);
    if (const auto told = std::exchange(lateNotifier(), {}))
        told();
}

void tellOfLateNotifier(std::function<void()> told)
{
    if (!notifierInstalled)
        lateNotifier() = std::move(told);
}

bool isOn() { return interpreterReady && notifierInstalled; }

} // namespace servicemode
