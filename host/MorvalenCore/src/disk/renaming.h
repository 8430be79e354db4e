#pragma once

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

// Gives a file on disk another path. A link is renamed itself; a folder is refused, and so is a
// path that is taken, whoever takes it in the last moment.
Qtilities::Core::Status renameOnDisk(const QString &from, const QString &to);

} // namespace MorvalenCore
