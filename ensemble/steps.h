#pragma once

#include "ensemble/configurations.h"

#include <MorvalenCore/BuildStep.h>

namespace ensemble {

extern const Rows stepRows;

// A step, and whether a file of the design brings it along.
struct ListedStep
{
    MorvalenCore::BuildStep step;
    bool isOfFile = false;
};

// The steps of a configuration as they are listed.
QList<ListedStep> stepsOf(const BuildConfiguration &configuration);

Value dictionaryOf(const ListedStep &step);

} // namespace ensemble
