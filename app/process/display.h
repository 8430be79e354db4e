#pragma once

#include <QString>

// Whether there is a display for a window; without one, Qt would abort.
namespace display {

// Why there is none, in one sentence without a final line feed; empty when there is one, or when
// only Qt can tell, as for a display of another machine.
QString problem();

} // namespace display
