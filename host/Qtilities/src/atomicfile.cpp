#include <Qtilities/atomicfile.h>
#include <Qtilities/Descriptor.h>

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>

namespace Qtilities::Core {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int mostLinks = 40;

// What is to be written: where links lead at last, and what lies there. The mode is 0 where nothing
// does; the error is why nobody can tell.
struct Target
{
    QString path;
    struct stat old = {};
    int error = 0;
};

bool look(Target *target)
{
    if (::lstat(QFile::encodeName(target->path).constData(), &target->old) == 0)
        return true;
    target->old = {};
    target->error = errno == ENOENT ? 0 : errno;
    return false;
}

Target followed(const QString &fileName)
{
    Target target {.path = fileName};
    for (int links = 0; look(&target) && S_ISLNK(target.old.st_mode); ++links) {
        if (links == mostLinks) {
            target.error = ELOOP;
            break;
        }
        target.path = QFileInfo(target.path).symLinkTarget();
    }
    return target;
}

// The folder of a path and the name in it. The text is taken as it stands: behind a link, ".."
// leads elsewhere than in the text.
struct Place
{
    QByteArray folder;
    QByteArray name;
};

Place placeOf(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    const qsizetype slash = path.lastIndexOf('/');
    return {slash < 0 ? "."_ba : path.first(qMax<qsizetype>(slash, 1)), path.sliced(slash + 1)};
}

// What the temporary files of a target begin with. A file's name has at most 255 bytes.
QByteArray temporaryPrefix(const QByteArray &target) { return '.' + target.left(200) + '.'; }

constexpr char temporarySuffix[] = ".part";

// What tells the temporary files of a process apart. Another process may have the same, which costs
// one more attempt.
QByteArray nextNumber()
{
    static std::atomic<quint32> next = QRandomGenerator::global()->generate();
    return QByteArray::number(next++, 16);
}

bool isRegular(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// A writer holds a lock on its temporary file; one without a lock belongs to nobody any more.
void removeLeftover(const Descriptor &folder, const char *name)
{
    const Descriptor leftover =
        Descriptor::openAt(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
    if (leftover && isRegular(leftover.get()) && ::flock(leftover.get(), LOCK_EX | LOCK_NB) == 0)
        ::unlinkat(folder.get(), name, 0);
}

// By the open folder, which is synchronised later: opendir() would open it once more.
void removeLeftovers(const Descriptor &folder, const QByteArray &prefix)
{
    alignas(dirent64) std::array<char, 32 * 1024> entries;
    while (true) {
        const ssize_t size = ::getdents64(folder.get(), entries.data(), entries.size());
        if (size <= 0)
            return;
        for (ssize_t at = 0; at < size;) {
            const auto *const entry = reinterpret_cast<const dirent64 *>(entries.data() + at);
            const QByteArrayView name(entry->d_name);
            if (name.startsWith(prefix) && name.endsWith(temporarySuffix))
                removeLeftover(folder, entry->d_name);
            at += entry->d_reclen;
        }
    }
}

// Locks the new file and tells whether it is still there: another process may have taken it for a
// leftover between its creation and the lock.
bool claim(int descriptor, struct stat *made)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::fstat(descriptor, made) == 0
        && made->st_nlink == 1;
}

bool keepOwnerAndMode(int descriptor, const struct stat &made, const struct stat &old)
{
    if (old.st_mode == 0)
        return true;
    const bool sameOwner = old.st_uid == made.st_uid && old.st_gid == made.st_gid;
    const mode_t mode = old.st_mode & 07777;
    if (sameOwner && mode == (made.st_mode & 07777))
        return true;
    // Only the superuser can give a file away; anybody else's file is theirs anyway.
    if (!sameOwner)
        static_cast<void>(::fchown(descriptor, old.st_uid, old.st_gid) == 0);
    return ::fchmod(descriptor, mode) == 0;
}

// To look for leftovers is not to read: the folder is not written anew for the time of it. Only the
// owner may do so.
Descriptor openFolder(const QByteArray &path)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY;
    Descriptor folder = Descriptor::open(path, flags | O_NOATIME);
    return folder || errno != EPERM ? std::move(folder) : Descriptor::open(path, flags);
}

// Some file systems cannot do it and say so.
bool synchronise(const Descriptor &folder) { return ::fsync(folder.get()) == 0 || errno == EINVAL; }

// The steps of the write proper, all in the folder, wherever that is moved meanwhile; errno tells
// what went wrong.
bool replace(const Descriptor &folder, const QByteArray &target, const struct stat &old,
             const QByteArray &temporary, const QByteArray &content)
{
    Descriptor file =
        Descriptor::openAt(folder, temporary, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666);
    if (!file)
        return false;
    struct stat made = {};
    if (!claim(file.get(), &made)) {
        errno = EAGAIN;
        return false;
    }
    const bool done = file.write(content) && keepOwnerAndMode(file.get(), made, old)
        && ::fsync(file.get()) == 0
        && ::renameat(folder.get(), temporary.constData(), folder.get(), target.constData()) == 0;
    if (!done) {
        const int reason = errno;
        ::unlinkat(folder.get(), temporary.constData(), 0);
        errno = reason;
    }
    return done && file.close();
}

// What stands in the way of writing; the sentence is a reason only.
Status writability(const Target &target)
{
    const mode_t mode = target.old.st_mode;
    if (target.error != 0)
        return Status::io(qt_error_string(target.error));
    if (S_ISDIR(mode))
        return Status::invalidArgument(u"it is a folder"_s);
    if (mode != 0 && !S_ISREG(mode))
        return Status::invalidArgument(u"it is not a file"_s);
    if (mode != 0 && ::access(QFile::encodeName(target.path).constData(), W_OK) != 0)
        return Status::readOnly(qt_error_string(errno));
    return {};
}

Status writeTo(const Target &target, const QByteArray &content)
{
    if (const Status status = writability(target); !status.isOk())
        return status;
    const Place place = placeOf(QFile::encodeName(target.path));
    Descriptor folder = openFolder(place.folder);
    const bool isReadable = bool(folder);
    const QByteArray prefix = temporaryPrefix(place.name);
    if (isReadable)
        removeLeftovers(folder, prefix);
    else
        folder = Descriptor::open(place.folder, O_PATH | O_DIRECTORY);
    if (!folder)
        return Status::io(qt_error_string(errno));
    bool done = false;
    for (int attempt = 0; !done && attempt < 10; ++attempt) {
        const QByteArray temporary = prefix + nextNumber() + temporarySuffix;
        done = replace(folder, place.name, target.old, temporary, content);
        if (!done && errno != EEXIST && errno != EAGAIN)
            break;
    }
    // Of a folder that cannot be read nothing is known but that, in the end.
    if (done && !isReadable)
        folder = openFolder(place.folder);
    return done && folder && synchronise(folder) ? Status() : Status::io(qt_error_string(errno));
}

} // namespace

void removeUnfinishedFiles(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder);
    if (const Descriptor opened = openFolder(path))
        removeLeftovers(opened, ".");
}

Status makePrivateFile(const QString &fileName)
{
    constexpr auto forOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    QFile file(fileName);
    // Another process may have made it meanwhile.
    if (file.exists() || file.open(QIODevice::NewOnly | QIODevice::WriteOnly, forOwnerOnly)
        || file.exists())
        return {};
    return Status::io(file.errorString());
}

Status writeFileAtomically(const QString &fileName, const QByteArray &content)
{
    const Status status = fileName.isEmpty() || fileName.contains(QChar())
        ? Status::invalidArgument(u"that is not the name of a file"_s)
        : writeTo(followed(fileName), content);
    if (status.isOk())
        return status;
    return status.withText(u"Cannot write \"%1\": %2"_s.arg(fileName, status.text()));
}

} // namespace Qtilities::Core
