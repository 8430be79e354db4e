#pragma once

#include <QString>
#include <QWidget>

namespace MorvalenCore {
class BuildConfiguration;
}
namespace MorvalenCore::Interfaces {
class IDesign;
}

// What the window does with the list of a design's build configurations. The user is asked for
// names, and told what was refused.
namespace configurationcalls {

using MorvalenCore::BuildConfiguration;
using MorvalenCore::Interfaces::IDesign;

// The name of the new configuration; empty when there is none.
QString add(IDesign *design, QWidget *window);
// A copy of macros and steps under a name and with a target path of its own.
QString duplicate(IDesign *design, const BuildConfiguration &configuration, QWidget *window);

void rename(IDesign *design, BuildConfiguration *configuration, QWidget *window);
// Asks before; what builds have made stays on disk.
void remove(IDesign *design, const BuildConfiguration &configuration, QWidget *window);

// Where the configuration builds, if that is a folder by now; else empty.
QString folderOf(const IDesign &design, const BuildConfiguration &configuration);

} // namespace configurationcalls
