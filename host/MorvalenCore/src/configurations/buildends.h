#pragma once

#include "build/BuildRun.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <Qtilities/Status.h>

namespace MorvalenCore {

BuildConfiguration::RunState stateAfter(BuildRun::Result result);

// How a run of the titled configuration ended; the log says it of a good end.
Qtilities::Core::Status statusOf(const QString &title, const BuildPlan &plan,
                                 const BuildRun::End &end);

} // namespace MorvalenCore
