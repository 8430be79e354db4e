#pragma once

#include <QString>

// What runs in the program now, beside the user's own doing.
namespace running {

// Whether a command has the console; such a command may wait in an event loop of its own, so that
// the window stays alive meanwhile.
bool isConsoleBusy();

// Why nothing may be opened, made or closed from the window now, in one sentence; empty when
// nothing is in the way.
QString refusal();

} // namespace running
