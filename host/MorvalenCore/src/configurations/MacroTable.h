#pragma once

#include <MorvalenCore/BuildStepPropertyManager.h>

namespace MorvalenCore {

class ConfigurationItem;
class DesignState;

// The macros of one build configuration. Part of it.
//
// A design gives its properties, and DESIGN_NAME, DESIGN_VENDOR, DESIGN_LIBRARY, DESIGN_VERSION,
// DESIGN_ID and DESIGN_FOLDER. A configuration gives its own macros, and CONFIGURATION and
// TARGET_PATH. A step gives STEP, INPUTS and OUTPUTS, which have values only while it runs.
class MacroTable final : public BuildStepPropertyManager
{
public:
    MacroTable(const ConfigurationItem &owner, const DesignState &designState)
        : configuration(owner),
          state(designState)
    {
    }

    // Values as commands see them, with the macros in them expanded; a value that cannot be
    // expanded is as it was written.
    QHash<QString, QString> macroValues(MacroMode mode) const override;

    // Values as they were written.
    QHash<QString, QString> rawValues(MacroMode mode) const;

private:
    QHash<QString, QString> designMacros() const;
    QHash<QString, QString> configurationMacros() const;

    const ConfigurationItem &configuration;
    const DesignState &state;
};

} // namespace MorvalenCore
