#include "disk/Descriptor.h"

#include <QFile>
#include <QStringList>

#include <fcntl.h>
#include <unistd.h>

namespace MorvalenCore {

Descriptor::~Descriptor()
{
    if (number >= 0)
        close(number);
}

Descriptor Descriptor::folderIn(int folder, const char *name)
{
    return Descriptor(openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

Descriptor Descriptor::folderWithoutLinks(const QString &path)
{
    // The folders on the way need not be readable, only passable.
    constexpr int passing = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    int step = open("/", passing);
    for (const QString &name : path.split(u'/', Qt::SkipEmptyParts)) {
        const Descriptor parent(step);
        step = openat(parent.get(), QFile::encodeName(name).constData(), passing);
        if (step < 0)
            break;
    }
    return Descriptor(step);
}

} // namespace MorvalenCore
