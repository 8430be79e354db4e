#pragma once

#include <QString>

namespace MorvalenCore {

// The ".git" of the innermost repository around a path that need not be on disk, on the same file
// system; empty when there is none, and when something else than files and folders lies where Git's
// library would open it: a pipe, which it would wait for, or a device.
QString gitFolderAround(const QString &path);

} // namespace MorvalenCore
