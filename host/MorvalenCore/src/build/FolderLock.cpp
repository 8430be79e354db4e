#include "build/FolderLock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace MorvalenCore {

FolderLock::~FolderLock()
{
    if (descriptor >= 0)
        close(descriptor);
}

bool FolderLock::take(const QString &folder)
{
    descriptor = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return descriptor < 0 || flock(descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

} // namespace MorvalenCore
