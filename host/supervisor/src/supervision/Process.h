#pragma once

#include <set>
#include <string>

#include <sys/types.h>

namespace Supervision {

// What the kernel says of a process. The time of its start, in ticks, tells it from another one
// that gets its number later.
struct Process
{
    pid_t id = 0;
    pid_t parent = 0;
    pid_t group = 0;
    pid_t session = 0;
    unsigned long long start = 0;
    // False for one that has ended and waits for its parent to take notice.
    bool isAlive = false;
    std::string name;

    bool operator==(const Process &) const = default;
};

// The pipes that a process has open, by their numbers.
struct Pipes
{
    std::set<ino_t> read;
    std::set<ino_t> written;
    // False when the process does not let itself be looked at.
    bool isKnown = true;
};

} // namespace Supervision
