#include "disk/folders.h"

#include <QFile>
#include <QStringList>

#include <fcntl.h>

using Qtilities::Core::Descriptor;

namespace MorvalenCore {

Descriptor folderIn(int folder, const char *name)
{
    return Descriptor(openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

Descriptor folderWithoutLinks(const QString &path)
{
    // The folders on the way need not be readable, only passable.
    constexpr int passing = O_PATH | O_DIRECTORY | O_NOFOLLOW;
    Descriptor step = Descriptor::open("/", passing);
    for (const QString &name : path.split(u'/', Qt::SkipEmptyParts)) {
        step = Descriptor(
            openat(step.get(), QFile::encodeName(name).constData(), passing | O_CLOEXEC));
        if (!step)
            break;
    }
    return step;
}

} // namespace MorvalenCore
