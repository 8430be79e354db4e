#pragma once

#include "build/BuildPlan.h"

namespace MorvalenCore {

class DesignFiles;

// What builds make, as files of the design.

// Why the plan must not be run: the first output that is on disk although no build has made it.
// Empty when there is none.
QString overwriteRefusal(const BuildPlan &plan, const DesignFiles &files);

// The steps with an output that is on disk but not noted as generated.
QList<int> stepsNotNoted(const BuildPlan &plan, const DesignFiles &files);

// Notes the outputs of steps as files that this version of the design has generated; adds those
// that the design does not have to its file set "generated". False, with the reason in *error,
// when the design refuses one.
bool noteGeneratedFiles(const BuildPlan &plan, const QList<int> &steps, DesignFiles *files,
                        QString *error);

} // namespace MorvalenCore
