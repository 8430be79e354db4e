#pragma once

#include "build/BuildPlan.h"

namespace MorvalenCore {

// Puts the steps in an order in which each comes behind those that make its inputs, and that is
// otherwise the one they have. Fails when two steps make the same file or steps wait for each
// other. Linear in steps and paths.
Qtilities::Core::Status orderSteps(QList<PlannedStep> *steps);

// For each step of several plans, how many steps the longest way has that begins with it: those
// that have to come one after the other. What an earlier plan makes for a later one counts.
QList<QList<int>> waysToGo(const QList<BuildPlan> &plans);

} // namespace MorvalenCore
