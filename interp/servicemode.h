#pragma once

#include "interp/export.h"

#include <functional>

// Whether Tcl serves its events from Qt's event loop. Tcl's default is that it does not, and it
// crashes when asked before it is initialised; so the later of the two, the interpreter or the
// notifier, switches it on. Both calls may be repeated; later ones change nothing.
namespace servicemode {

void interpreterIsReady();
void notifierIsInstalled();

// Whether both have been called.
bool isOn();

// Scripts have run; if the notifier is only installed later, told is called then, once. What they
// opened stays with Tcl's own notifier.
TCLSCRIPTING_EXPORT void tellOfLateNotifier(std::function<void()> told);

} // namespace servicemode
