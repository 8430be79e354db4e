#pragma once

#include <QString>

namespace MorvalenCore {

// Texts of paths; nothing is looked up on disk.

// Strictly below.
bool isBelow(const QString &path, const QString &folder);

// Clean; a relative path is of the folder.
QString absolutePath(const QString &path, const QString &folder);

// Relative when it lies below the folder, else as it is.
QString pathSeenFrom(const QString &folder, const QString &path);

} // namespace MorvalenCore
