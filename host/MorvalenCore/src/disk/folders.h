#pragma once

#include <Qtilities/Descriptor.h>

#include <QString>

namespace MorvalenCore {

// The folder at an absolute path, reached from the root without following any link; not open, with
// errno set, when there is a link on the way or no such folder.
Qtilities::Core::Descriptor folderWithoutLinks(const QString &path);

// Whether an open folder is where something is mounted: another file system, or a folder of the
// same. True also when the system does not tell.
bool isMountPoint(int folder);

// The folder of that name in an open folder, which must not be a link; the second need not be
// readable, only passable.
Qtilities::Core::Descriptor folderIn(int folder, const char *name);
Qtilities::Core::Descriptor passageIn(int folder, const char *name);

} // namespace MorvalenCore
