#pragma once

namespace Qtilities::CoreGui::Constants {

// The mode manager of the main window; every mode appears there unless it says otherwise.
inline constexpr int qti_def_DEFAULT_MODE_MANAGER = 0;

} // namespace Qtilities::CoreGui::Constants
