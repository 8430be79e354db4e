#pragma once

#include "ensemble/designs.h"

#include <MorvalenCore/BuildConfiguration.h>

namespace ensemble {

using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildDescription;

extern const Rows configurationRows;

// What the step comes to on the configuration that the call's first argument names.
Answer onConfiguration(const Call &call,
                       const std::function<Answer(const BuildConfiguration &)> &step);

// Changes that configuration as the step changes what the design keeps of it.
Answer changeConfiguration(const Call &call, const std::function<Answer(BuildDescription &)> &step);

} // namespace ensemble
