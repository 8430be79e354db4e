#pragma once

#include <QString>

namespace MorvalenCore {

// The program that watches over the processes of a build: what the environment variable
// MORVALEN_SUPERVISOR names, else the one that was installed with this library, or built with it.
QString supervisorProgram();

} // namespace MorvalenCore
