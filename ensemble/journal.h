#pragma once

#include "ensemble/Answer.h"
#include "ensemble/Call.h"

namespace ensemble {

Answer journal(const Call &call);

} // namespace ensemble
