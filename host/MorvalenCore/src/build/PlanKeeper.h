#pragma once

#include "build/BuildPlan.h"
#include "build/NinjaFile.h"

#include <memory>

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
    // Null, with the reason in *error, when there is no plan for the request.
    std::shared_ptr<KeptPlan> planFor(const BuildRequest &request, QString *error);

private:
    BuildRequest last;
    std::shared_ptr<KeptPlan> kept;
    QString reason;
};

} // namespace MorvalenCore
