#pragma once

#include "commands/activedesign.h"
#include "commands/Subcommand.h"

namespace commands {

// The step of "design set": changes an attribute of the active design.
Outcome setDesignAttribute(const DesignCall &call);

// The attributes that it goes on with.
extern const Subcommand<DesignCall> designSetAttributes[7];

} // namespace commands
