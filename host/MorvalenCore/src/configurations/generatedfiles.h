#pragma once

#include "build/BuildPlan.h"

namespace MorvalenCore {

class DesignFiles;

// What builds make, as files of the design.

// Fails when the plan must not be run: an output is on disk although no build has made it.
Qtilities::Core::Status checkOverwriting(const BuildPlan &plan, const DesignFiles &files);

// The steps with an output that is on disk but not noted as generated.
QList<int> stepsNotNoted(const BuildPlan &plan, const DesignFiles &files);

// Notes the outputs of steps as files that this version of the design has generated; adds those
// that the design does not have to its file set "generated". Fails when the design refuses
// one.
Qtilities::Core::Status noteGeneratedFiles(const BuildPlan &plan, const QList<int> &steps,
                                           DesignFiles *files);

} // namespace MorvalenCore
