#pragma once

#include "ensemble/Call.h"

// Values of a design that are read and set one at a time.
namespace ensemble {

extern const Options propertyOptions;

Answer property(const Call &call);
Answer version(const Call &call);

} // namespace ensemble
