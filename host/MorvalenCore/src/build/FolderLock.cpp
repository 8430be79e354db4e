#include "build/FolderLock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

using Qtilities::Core::Descriptor;

namespace MorvalenCore {

bool FolderLock::take(const QString &folder)
{
    descriptor = Descriptor::open(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY);
    return !descriptor || flock(descriptor.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

} // namespace MorvalenCore
