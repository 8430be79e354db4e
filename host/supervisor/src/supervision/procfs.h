#pragma once

#include "supervision/Process.h"

#include <optional>
#include <vector>

namespace Supervision {

// Looks into /proc. All of this is about a moment that is over when it is read.

std::optional<Process> processOf(pid_t id);

// A process that lives all the while is never left out.
std::vector<Process> allProcesses();

// Some of the process's children; those that there are all the while, unless others end meanwhile.
std::vector<pid_t> someChildrenOf(pid_t parent);

Pipes pipesOf(pid_t id);

// Sends a signal to this very process, not to one that has got its number since.
void sendSignal(const Process &process, int number);

} // namespace Supervision
