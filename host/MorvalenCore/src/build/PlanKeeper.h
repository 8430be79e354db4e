#pragma once

#include "build/BuildPlan.h"
#include "build/NinjaFile.h"

#include <memory>
#include <optional>

namespace MorvalenCore {

// A plan with its file.
struct KeptPlan
{
    BuildPlan plan;
    NinjaFile file;
    // Whether somebody has looked at what its steps would overwrite.
    bool isChecked = false;
    // Whether all that was made by it is noted in the design.
    bool isNoted = false;
};

// Makes plans, and keeps the last one as long as the same is asked for.
class PlanKeeper
{
public:
    using Kept = Qtilities::Core::Result<std::shared_ptr<KeptPlan>>;

    Kept planFor(const BuildRequest &request);

private:
    BuildRequest last;
    // Nothing as long as nobody has asked.
    std::optional<Kept> kept;
};

} // namespace MorvalenCore
