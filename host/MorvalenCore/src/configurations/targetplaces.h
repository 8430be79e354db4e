#pragma once

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

struct BuildPlan;

// Where builds may write. A component file can name any target path, and a folder that came with
// it can be a link, so a target folder lies in the working folder, or where the user has allowed
// it: the setting target_folders of the group Builds names folders outside, or target paths as
// they are written in a design. A folder with a build.ninja of ours is used as before.

// Whether a plan may be carried out. The target path is the one that the design holds.
Qtilities::Core::Status checkTargetPlace(const BuildPlan &plan, const QString &targetPath);

// Allows the target path that the user has given to a design, when it leads out of its folder.
void allowTargetPath(const QString &targetPath, const QString &workingFolder);

} // namespace MorvalenCore
