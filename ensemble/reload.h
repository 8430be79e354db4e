#pragma once

#include "ensemble/Row.h"

namespace ensemble {

extern const Options reloadOptions;

Answer reload(const Call &call);

} // namespace ensemble
