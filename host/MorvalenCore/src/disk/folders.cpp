#include "disk/folders.h"

#include <QFile>
#include <QStringList>

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

using Qtilities::Core::Descriptor;

namespace MorvalenCore {

namespace {

// The number of the mount that an open file lies on; negative when the system does not tell.
int mountOf(int descriptor)
{
    const QByteArray path = "/proc/self/fdinfo/" + QByteArray::number(descriptor);
    const std::unique_ptr<FILE, int (*)(FILE *)> file(fopen(path.constData(), "re"), fclose);
    char line[100];
    int number = -1;
    while (file && fgets(line, sizeof(line), file.get())) {
        if (sscanf(line, "mnt_id: %d", &number) == 1)
            break;
    }
    return number;
}

} // namespace

bool isMountPoint(int folder)
{
    struct statx here = {};
    if (statx(folder, "", AT_EMPTY_PATH, 0, &here) == 0
        && (here.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0)
        return (here.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    // Linux before 5.8.
    const Descriptor above = passageIn(folder, "..");
    const int mount = mountOf(folder);
    return mount < 0 || !above || mount != mountOf(above.get());
}

Descriptor folderIn(int folder, const char *name)
{
    return Descriptor(openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

Descriptor passageIn(int folder, const char *name)
{
    return Descriptor(openat(folder, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

Descriptor folderWithoutLinks(const QString &path)
{
    Descriptor step = passageIn(AT_FDCWD, "/");
    for (const QString &name : path.split(u'/', Qt::SkipEmptyParts)) {
        step = passageIn(step.get(), QFile::encodeName(name).constData());
        if (!step)
            break;
    }
    return step;
}

} // namespace MorvalenCore
