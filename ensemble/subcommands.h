#pragma once

#include "ensemble/Row.h"

namespace ensemble {

// The word of the command.
inline constexpr const char *commandWord = "morvalen";

// All subcommands, in alphabetic order.
Rows subcommands();

} // namespace ensemble
