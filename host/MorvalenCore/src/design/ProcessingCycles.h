#pragma once

#include <functional>
#include <utility>

namespace MorvalenCore {

// Tells of changes: at once, or once for all of them at the end of the outermost processing cycle.
// Part of its design.
class ProcessingCycles
{
public:
    explicit ProcessingCycles(std::function<void()> listener) : tell(std::move(listener)) { }

    void changed()
    {
        if (open > 0)
            hasChanged = true;
        else
            tell();
    }

    void begin() { ++open; }

    // The end of the last one tells of what has changed since the first began, if it is to notify.
    void end(bool notify)
    {
        if (open == 0 || --open > 0)
            return;
        if (notify && hasChanged)
            tell();
        hasChanged = false;
    }

private:
    std::function<void()> tell;
    int open = 0;
    bool hasChanged = false;
};

} // namespace MorvalenCore
