#include "disk/removal.h"

#include "disk/Descriptor.h"

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

namespace MorvalenCore {

namespace {

// One descriptor is open for each level.
constexpr int deepestFolder = 256;

bool fail(QString *error, const QString &text)
{
    if (error)
        *error = text;
    return false;
}

bool failWithErrno(QString *error, const QString &path)
{
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    return fail(error, u"\"%1\" could not be deleted: %2"_s.arg(path, reason));
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

// Deletes trees below one folder, all on the file system of that folder.
class TreeRemover
{
public:
    TreeRemover(dev_t fileSystem, QString *reason) : device(fileSystem), error(reason) { }

    bool remove(int parent, const QByteArray &name, const QString &path, int level = 1)
    {
        const Descriptor folder = Descriptor::folderIn(parent, name.constData());
        struct stat here;
        if (!folder || fstat(folder.get(), &here) != 0)
            return failWithErrno(error, path);
        if (here.st_dev != device)
            return fail(error,
                        u"\"%1\" is not deleted because it is a mounted file system"_s.arg(path));
        if (level > deepestFolder)
            return fail(error, u"\"%1\" is not deleted because it lies too deep"_s.arg(path));

        for (const QByteArray &entry :
             entries(Descriptor(fcntl(folder.get(), F_DUPFD_CLOEXEC, 0)))) {
            if (unlinkat(folder.get(), entry.constData(), 0) == 0 || errno == ENOENT)
                continue;
            const QString below = path + u'/' + QFile::decodeName(entry);
            if (errno != EISDIR)
                return failWithErrno(error, below);
            if (!remove(folder.get(), entry, below, level + 1))
                return false;
        }
        if (unlinkat(parent, name.constData(), AT_REMOVEDIR) != 0)
            return failWithErrno(error, path);
        return true;
    }

private:
    dev_t device;
    QString *error;
};

// What all deletions share: the guard, the trash, and the way to the parent folder without links.
// The step deletes the entry of that name in the open parent folder.
template <typename Step>
bool guarded(const QString &path, const DeletionLimits &limits, Deletion how, QString *error,
             mode_t kind, Step step)
{
    if (const QString refusal = deletionRefusal(path, limits); !refusal.isEmpty())
        return fail(error, refusal);

    const QFileInfo info(path);
    const Descriptor parent = Descriptor::folderWithoutLinks(info.path());
    const QByteArray name = QFile::encodeName(info.fileName());
    struct stat here;
    if (!parent || fstatat(parent.get(), name.constData(), &here, AT_SYMLINK_NOFOLLOW) != 0)
        return failWithErrno(error, path);
    if ((here.st_mode & S_IFMT) != kind)
        return fail(error,
                    u"\"%1\" is not deleted because it is not a %2"_s.arg(
                        path, kind == S_IFDIR ? u"folder"_s : u"regular file"_s));
    if (how == Deletion::ToTrash)
        return QFile::moveToTrash(path)
            || fail(error, u"\"%1\" could not be moved to the trash"_s.arg(path));
    return step(parent.get(), name, here.st_dev);
}

} // namespace

bool deleteFile(const QString &path, const DeletionLimits &limits, Deletion how, QString *error)
{
    return guarded(
        path, limits, how, error, S_IFREG, [&](int parent, const QByteArray &name, dev_t) {
            return unlinkat(parent, name.constData(), 0) == 0 || failWithErrno(error, path);
        });
}

bool deleteFolder(const QString &path, const DeletionLimits &limits, Deletion how, QString *error)
{
    return guarded(path, limits, how, error, S_IFDIR,
                   [&](int parent, const QByteArray &name, dev_t device) {
                       return TreeRemover(device, error).remove(parent, name, path);
                   });
}

bool deleteEmptyFolder(const QString &path, const DeletionLimits &limits, QString *error)
{
    return guarded(path, limits, Deletion::Permanent, error, S_IFDIR,
                   [&](int parent, const QByteArray &name, dev_t) {
                       return unlinkat(parent, name.constData(), AT_REMOVEDIR) == 0
                           || failWithErrno(error, path);
                   });
}

} // namespace MorvalenCore
