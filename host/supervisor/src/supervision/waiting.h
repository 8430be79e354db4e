#pragma once

#include "supervision/Process.h"

#include <vector>

namespace Supervision {

// A process with the pipes that it has open.
struct PipeHolder
{
    Process process;
    Pipes pipes;
};

// What is left behind, and what Ninja is at, each looked at in this order: so whoever started what
// is left behind is there among the steps, unless it has ended.
struct Scene
{
    // Processes whose parents have ended, and what those have started.
    std::vector<PipeHolder> orphans;
    Pipes ninja;
    // Ninja's children.
    std::vector<PipeHolder> steps;
};

// The orphans that keep Ninja waiting for a step that has ended: they hold its output, and Ninja
// takes a step for ended when nobody can write to its output any more. None as long as a running
// step could be the one that the output belongs to.
std::vector<Process> keepersIn(const Scene &scene);

} // namespace Supervision
