#pragma once

#include "commands/activeitem.h"

namespace commands {

// The shared properties of an active item: what goes behind the subcommand "property", the same
// for all kinds of items.
extern const Subcommand<ItemCall> sharedPropertyActions[4];

} // namespace commands
