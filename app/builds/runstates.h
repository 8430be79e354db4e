#pragma once

#include <MorvalenCore/BuildConfiguration.h>

// How a build is, in the window's language; scripts read BuildConfiguration::runStateToString().
namespace runstates {

QString word(MorvalenCore::BuildConfiguration::RunState state);

} // namespace runstates
