#pragma once

#include "ensemble/Row.h"

namespace ensemble {

extern const Rows macroRows;

} // namespace ensemble
