#include "build/PlanKeeper.h"

namespace MorvalenCore {

std::shared_ptr<KeptPlan> PlanKeeper::planFor(const BuildRequest &request, QString *error)
{
    if (last != request) {
        last = request;
        kept.reset();
        reason.clear();
        if (const std::optional<BuildPlan> plan = makeBuildPlan(request, &reason))
            kept = std::make_shared<KeptPlan>(*plan, NinjaFile(*plan));
    }
    *error = reason;
    return kept;
}

} // namespace MorvalenCore
