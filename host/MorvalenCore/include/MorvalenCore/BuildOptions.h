#pragma once

#include <optional>

namespace MorvalenCore {

// How one call builds, in place of what the settings say.
struct BuildOptions
{
    // Steps at the same time.
    std::optional<int> jobs {};
    // Whether what does not depend on a failed step still runs, in other designs, too.
    bool keepGoing = false;
    // Only says what would be run.
    bool isDry = false;
    // Several designs in runs of their own, so many at the same time; without it they are one run.
    std::optional<int> spread {};
};

} // namespace MorvalenCore
