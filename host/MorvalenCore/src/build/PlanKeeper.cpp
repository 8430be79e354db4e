#include "build/PlanKeeper.h"

namespace MorvalenCore {

PlanKeeper::Kept PlanKeeper::planFor(const BuildRequest &request)
{
    if (!kept || last != request) {
        last = request;
        const Qtilities::Core::Result<BuildPlan> plan = makeBuildPlan(request);
        if (plan.isOk())
            kept = std::make_shared<KeptPlan>(KeptPlan {plan.value(), NinjaFile(plan.value())});
        else
            kept = plan.status();
    }
    return *kept;
}

} // namespace MorvalenCore
