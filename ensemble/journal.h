#pragma once

#include "ensemble/Call.h"
#include "ensemble/Answer.h"

namespace ensemble {

Answer journal(const Call &call);

} // namespace ensemble
