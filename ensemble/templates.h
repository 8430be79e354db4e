#pragma once

#include "ensemble/Row.h"

namespace ensemble {

extern const Options templatesOptions;

Answer templates(const Call &call);

} // namespace ensemble
