#pragma once

#include "app/CommandLine.h"

// A run without a window, from the application object to the status of the process. It needs Qt's
// core only.
namespace plainrun {

int run(const CommandLine &line);

} // namespace plainrun
