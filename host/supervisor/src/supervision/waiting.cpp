#include "supervision/waiting.h"

#include <algorithm>

namespace Supervision {

namespace {

bool isShared(const std::set<ino_t> &some, const std::set<ino_t> &others)
{
    return std::any_of(some.begin(), some.end(), [&](ino_t pipe) { return others.count(pipe); });
}

// Whether a running step is another than the one with this output. Each has one output, which it
// may have closed, or it may not let itself be looked at: then nobody knows.
bool isAnother(const PipeHolder &step, ino_t output, const Pipes &ninja)
{
    return step.pipes.isKnown && !step.pipes.written.count(output)
        && isShared(step.pipes.written, ninja.read);
}

} // namespace

std::vector<Process> keepersIn(const Scene &scene)
{
    std::vector<Process> keepers;
    const auto belongsToNone = [&](ino_t output) {
        return std::all_of(scene.steps.begin(), scene.steps.end(), [&](const PipeHolder &step) {
            return !step.process.isAlive || isAnother(step, output, scene.ninja);
        });
    };
    for (const PipeHolder &orphan : scene.orphans) {
        const std::set<ino_t> &written = orphan.pipes.written;
        if (std::any_of(written.begin(), written.end(), [&](ino_t pipe) {
                return scene.ninja.read.count(pipe) && belongsToNone(pipe);
            }))
            keepers.push_back(orphan.process);
    }
    return keepers;
}

} // namespace Supervision
