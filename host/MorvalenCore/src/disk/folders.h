#pragma once

#include <Qtilities/Descriptor.h>

#include <QString>

namespace MorvalenCore {

// The folder at an absolute path, reached from the root without following any link; not open, with
// errno set, when there is a link on the way or no such folder.
Qtilities::Core::Descriptor folderWithoutLinks(const QString &path);

// The folder of that name in an open folder, which must not be a link.
Qtilities::Core::Descriptor folderIn(int folder, const char *name);

} // namespace MorvalenCore
