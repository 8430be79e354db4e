#pragma once

#include <QFlags>

namespace MorvalenCore {

// Where macros come from.
enum MacroModeFlag { StepMacros = 1, ConfigurationMacros = 2, DesignMacros = 4 };
Q_DECLARE_FLAGS(MacroMode, MacroModeFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(MacroMode)

} // namespace MorvalenCore
