#pragma once

#include "commands/Outcome.h"

namespace commands {

// The step of "designs new": makes a design of a registered type and structure, gives it its
// working folder and opens it.
Outcome newDesign(const Arguments &arguments);

} // namespace commands
