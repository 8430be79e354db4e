#pragma once

#include "build/BuildPlan.h"
#include "build/OutputRecord.h"

namespace MorvalenCore {

class DesignFiles;

// What builds make, as files of the design.

// Fails when the plan must not be run: an output is on disk although no build has made it.
Qtilities::Core::Status checkOverwriting(const BuildPlan &plan, const DesignFiles &files);

// The steps with an output that is on disk but not noted as generated.
QList<int> stepsNotNoted(const BuildPlan &plan, const DesignFiles &files);

// The outputs of steps, as a record of that version of the design has them.
QList<MadeOutput> outputsOf(const BuildPlan &plan, const QList<int> &steps, const QString &version);

} // namespace MorvalenCore
