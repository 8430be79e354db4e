#pragma once

#include "supervision/Process.h"

#include <map>
#include <vector>

namespace Supervision {

// Processes by their parents.
class Table
{
public:
    explicit Table(const std::vector<Process> &processes);

    // What is below a process, nearest first; without the process itself, and without those that
    // are, or are below, the one that is to be left out.
    std::vector<Process> below(pid_t ancestor, pid_t leftOut = 0) const;

    std::vector<Process> childrenOf(pid_t parent) const;

private:
    std::multimap<pid_t, Process> byParent;
};

} // namespace Supervision
