#pragma once

#include <Qtilities/Status.h>

// What runs in the program now, beside the user's own doing.
namespace running {

// Whether a command has the console; such a command may wait in an event loop of its own, so that
// the window stays alive meanwhile.
bool isConsoleBusy();

// Whether anything may be opened, made or closed from the window now.
Qtilities::Core::Status check();

} // namespace running
