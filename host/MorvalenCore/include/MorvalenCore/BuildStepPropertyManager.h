#pragma once

#include <MorvalenCore/MacroMode.h>

#include <QHash>
#include <QString>

namespace MorvalenCore {

// Gives the macros of a build configuration.
class BuildStepPropertyManager
{
public:
    virtual ~BuildStepPropertyManager() = default;

    // Macro names and values of the given origins; a step's macro hides a configuration's of the
    // same name, which hides a design's.
    virtual QHash<QString, QString> macroValues(MacroMode mode) const = 0;
};

} // namespace MorvalenCore
