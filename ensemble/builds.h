#pragma once

#include "ensemble/Row.h"

namespace ensemble {

extern const Options buildOptions;

Answer build(const Call &call);

} // namespace ensemble
