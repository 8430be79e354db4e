#pragma once

#include <QString>
#include <QWidget>

namespace MorvalenCore {
class BuildConfiguration;
}
namespace MorvalenCore::Interfaces {
class IDesign;
}

// What the window does with builds, as the commands do it.
namespace buildcalls {

// Begin once control is back in the event loop, if what they are about is there then. While a
// command or a script runs they are refused, with a priority message.
void run(MorvalenCore::BuildConfiguration *configuration, bool onlyOutdated);
void refresh(MorvalenCore::BuildConfiguration *configuration);
void activate(MorvalenCore::Interfaces::IDesign *design, const QString &configurationName);

// Deletes what builds of the design's version, or of all versions, have made: asks first, naming
// each file, and shows a report.
void clean(MorvalenCore::Interfaces::IDesign *design, bool allVersions, QWidget *window);

// Whether a build of one of the design's configurations is under way.
bool isBuilding(const MorvalenCore::Interfaces::IDesign &design);

} // namespace buildcalls
