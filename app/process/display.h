#pragma once

#include <Qtilities/Status.h>

// Whether there is a display for a window; without one, Qt would abort.
namespace display {

// Ok also when only Qt can tell, as for a display of another machine.
Qtilities::Core::Status check();

} // namespace display
