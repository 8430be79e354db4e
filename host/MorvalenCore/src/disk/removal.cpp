#include "disk/removal.h"

#include "disk/folders.h"

#include <QFile>
#include <QFileInfo>
#include <QList>

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Descriptor;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// One descriptor is open for each level.
constexpr int deepestFolder = 256;

Status refusal(const QString &path, QStringView why)
{
    return Status::invalidArgument(u"\"%1\" is not deleted because %2"_s.arg(path, why));
}

Status refusalOfMount(const QString &path) { return refusal(path, u"it is a mount point"); }

Status failureOfSystem(const QString &path)
{
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    return Status::io(u"\"%1\" could not be deleted: %2"_s.arg(path, reason));
}

QList<QByteArray> entries(Descriptor folder)
{
    QList<QByteArray> names;
    DIR *listing = fdopendir(folder.release());
    if (!listing)
        return names;
    while (const dirent *entry = readdir(listing)) {
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.append(entry->d_name);
    }
    closedir(listing);
    return names;
}

Descriptor copyOf(const Descriptor &folder)
{
    return Descriptor(fcntl(folder.get(), F_DUPFD_CLOEXEC, 0));
}

// Deletes trees below one folder, all on the file system of that folder.
class TreeRemover
{
public:
    explicit TreeRemover(dev_t fileSystem) : device(fileSystem) { }

    // Nothing is gone where a folder of the tree is refused.
    Status remove(int parent, const QByteArray &name, const QString &path) const
    {
        const Status allowed = check(parent, name, path, 1);
        return allowed.isOk() ? clear(parent, name, path, 1) : allowed;
    }

private:
    Result<Descriptor> enter(int parent, const QByteArray &name, const QString &path,
                             int level) const
    {
        Descriptor folder = folderIn(parent, name.constData());
        struct stat here;
        if (!folder || fstat(folder.get(), &here) != 0)
            return failureOfSystem(path);
        if (isMountPoint(folder.get()))
            return refusalOfMount(path);
        if (here.st_dev != device)
            return refusal(path, u"it is a mounted file system");
        if (level > deepestFolder)
            return refusal(path, u"it lies too deep");
        return Result<Descriptor>(std::move(folder));
    }

    // Whether all folders of the tree can be entered now.
    Status check(int parent, const QByteArray &name, const QString &path, int level) const
    {
        const Result<Descriptor> folder = enter(parent, name, path, level);
        if (!folder.isOk())
            return folder.status();
        const int here = folder.value().get();
        for (const QByteArray &entry : entries(copyOf(folder.value()))) {
            struct stat there;
            const int looked =
                fstatat(here, entry.constData(), &there, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT);
            if (looked != 0 || !S_ISDIR(there.st_mode))
                continue;
            const QString below = path + u'/' + QFile::decodeName(entry);
            if (const Status allowed = check(here, entry, below, level + 1); !allowed.isOk())
                return allowed;
        }
        return {};
    }

    Status clear(int parent, const QByteArray &name, const QString &path, int level) const
    {
        const Result<Descriptor> folder = enter(parent, name, path, level);
        if (!folder.isOk())
            return folder.status();
        const int here = folder.value().get();
        for (const QByteArray &entry : entries(copyOf(folder.value()))) {
            if (unlinkat(here, entry.constData(), 0) == 0 || errno == ENOENT)
                continue;
            const QString below = path + u'/' + QFile::decodeName(entry);
            if (errno != EISDIR)
                return failureOfSystem(below);
            if (const Status cleared = clear(here, entry, below, level + 1); !cleared.isOk())
                return cleared;
        }
        return unlinkat(parent, name.constData(), AT_REMOVEDIR) == 0 ? Status()
                                                                     : failureOfSystem(path);
    }

    dev_t device;
};

// The folder that holds a path, reached without links, and from the limit on without mounts. What
// the limit leads to may have changed since the path was checked.
Result<Descriptor> parentOf(const QString &path, const QString &limit)
{
    QString place = QFileInfo(limit).canonicalFilePath();
    if (place.isEmpty() || !path.startsWith(place + u'/'))
        return refusal(path, u"it does not lie below \"%1\""_s.arg(limit));
    Descriptor folder = folderWithoutLinks(place);
    for (const QString &name :
         QFileInfo(path).path().mid(place.size()).split(u'/', Qt::SkipEmptyParts)) {
        if (!folder)
            break;
        folder = passageIn(folder.get(), QFile::encodeName(name).constData());
        place += u'/' + name;
        if (folder && isMountPoint(folder.get()))
            return refusalOfMount(place);
    }
    if (!folder)
        return failureOfSystem(path);
    return Result<Descriptor>(std::move(folder));
}

// What all deletions share: the guard, the trash, and the way to the parent folder.
// The step deletes the entry of that name in the open parent folder.
template <typename Step>
Status guarded(const QString &path, const DeletionLimits &limits, Deletion how, mode_t kind,
               Step step)
{
    if (const Status allowed = checkDeletion(path, limits); !allowed.isOk())
        return allowed;

    const Result<Descriptor> holder = parentOf(path, limits.below);
    if (!holder.isOk())
        return holder.status();
    const int parent = holder.value().get();
    const QByteArray name = QFile::encodeName(QFileInfo(path).fileName());
    struct stat here;
    if (fstatat(parent, name.constData(), &here, AT_SYMLINK_NOFOLLOW) != 0)
        return failureOfSystem(path);
    if ((here.st_mode & S_IFMT) != kind)
        return refusal(path, kind == S_IFDIR ? u"it is not a folder" : u"it is not a regular file");
    if (const Descriptor doomed = passageIn(parent, name.constData());
        doomed && isMountPoint(doomed.get()))
        return refusalOfMount(path);
    if (how == Deletion::Permanent)
        return step(parent, name, here.st_dev);
    return QFile::moveToTrash(path)
        ? Status()
        : Status::io(u"\"%1\" could not be moved to the trash"_s.arg(path));
}

} // namespace

Status deleteFile(const QString &path, const DeletionLimits &limits, Deletion how)
{
    return guarded(path, limits, how, S_IFREG, [&](int parent, const QByteArray &name, dev_t) {
        return unlinkat(parent, name.constData(), 0) == 0 ? Status() : failureOfSystem(path);
    });
}

Status deleteFolder(const QString &path, const DeletionLimits &limits, Deletion how)
{
    return guarded(path, limits, how, S_IFDIR,
                   [&](int parent, const QByteArray &name, dev_t device) {
                       return TreeRemover(device).remove(parent, name, path);
                   });
}

Status deleteEmptyFolder(const QString &path, const DeletionLimits &limits)
{
    return guarded(
        path, limits, Deletion::Permanent, S_IFDIR, [&](int parent, const QByteArray &name, dev_t) {
            return unlinkat(parent, name.constData(), AT_REMOVEDIR) == 0 ? Status()
                                                                         : failureOfSystem(path);
        });
}

} // namespace MorvalenCore
