#include <Qtilities/atomicfile.h>
#include <Qtilities/Descriptor.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

namespace Qtilities::Core {

namespace {

using namespace Qt::Literals::StringLiterals;

QString followed(QString path)
{
    for (int links = 0; links < 40 && QFileInfo(path).isSymLink(); ++links)
        path = QFileInfo(path).symLinkTarget();
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

// What the temporary files of a target begin with. A file's name has at most 255 bytes.
QByteArray temporaryPrefix(const QString &target)
{
    return '.' + QFile::encodeName(QFileInfo(target).fileName()).left(200) + '.';
}

constexpr char temporarySuffix[] = ".part";

bool isRegular(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// A writer holds a lock on its temporary file; one without a lock belongs to nobody any more.
void removeLeftovers(const QString &folderName, const QByteArray &prefix)
{
    const QByteArray folder = QFile::encodeName(folderName) + '/';
    const std::unique_ptr<DIR, int (*)(DIR *)> entries(::opendir(folder.constData()), ::closedir);
    while (const dirent *const entry = entries ? ::readdir(entries.get()) : nullptr) {
        const QByteArrayView name(entry->d_name);
        if (!name.startsWith(prefix) || !name.endsWith(temporarySuffix))
            continue;
        const QByteArray path = folder + name.toByteArray();
        const Descriptor leftover = Descriptor::open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        if (leftover && isRegular(leftover.get())
            && ::flock(leftover.get(), LOCK_EX | LOCK_NB) == 0)
            ::unlink(path.constData());
    }
}

// Locks the new file and tells whether it is still there: another process may have taken it for a
// leftover between its creation and the lock.
bool claim(int descriptor)
{
    struct stat status = {};
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::fstat(descriptor, &status) == 0
        && status.st_nlink == 1;
}

bool keepOwnerAndMode(int descriptor, const QByteArray &target)
{
    struct stat status = {};
    if (::stat(target.constData(), &status) != 0)
        return errno == ENOENT;
    // Only the superuser can give a file away; anybody else's file is theirs anyway.
    if (status.st_uid != ::geteuid() || status.st_gid != ::getegid())
        static_cast<void>(::fchown(descriptor, status.st_uid, status.st_gid) == 0);
    return ::fchmod(descriptor, status.st_mode & 07777) == 0;
}

bool synchroniseFolder(const QByteArray &folder)
{
    const Descriptor descriptor = Descriptor::open(folder, O_RDONLY | O_DIRECTORY);
    // Some file systems cannot do it and say so.
    return descriptor && (::fsync(descriptor.get()) == 0 || errno == EINVAL);
}

// The steps of the write proper; errno tells what went wrong.
bool replace(const QByteArray &target, const QByteArray &temporary, const QByteArray &content)
{
    Descriptor file = Descriptor::open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0666);
    if (!file)
        return false;
    if (!claim(file.get())) {
        errno = EAGAIN;
        return false;
    }
    const bool done = file.write(content) && keepOwnerAndMode(file.get(), target)
        && ::fsync(file.get()) == 0 && ::rename(temporary.constData(), target.constData()) == 0;
    if (!done) {
        const int reason = errno;
        ::unlink(temporary.constData());
        errno = reason;
    }
    return done && file.close();
}

// What stands in the way of writing; the sentence is a reason only.
Status writability(const QString &target)
{
    const QFileInfo info(target);
    if (info.isDir())
        return Status::invalidArgument(u"it is a folder"_s);
    if (info.exists() && !info.isFile())
        return Status::invalidArgument(u"it is not a file"_s);
    if (info.exists() && ::access(QFile::encodeName(target).constData(), W_OK) != 0)
        return Status::readOnly(qt_error_string(errno));
    return {};
}

Status writeTo(const QString &target, const QByteArray &content)
{
    if (const Status status = writability(target); !status.isOk())
        return status;
    removeLeftovers(QFileInfo(target).path(), temporaryPrefix(target));
    const QByteArray folder = QFile::encodeName(QFileInfo(target).path());
    bool done = false;
    for (int attempt = 0; !done && attempt < 10; ++attempt) {
        const QByteArray number = QByteArray::number(QRandomGenerator::global()->generate(), 16);
        done = replace(QFile::encodeName(target),
                       folder + '/' + temporaryPrefix(target) + number + temporarySuffix, content);
        if (!done && errno != EEXIST && errno != EAGAIN)
            break;
    }
    return done && synchroniseFolder(folder) ? Status() : Status::io(qt_error_string(errno));
}

} // namespace

void removeUnfinishedFiles(const QString &folder) { removeLeftovers(folder, "."); }

Status writeFileAtomically(const QString &fileName, const QByteArray &content)
{
    const Status status = fileName.isEmpty() || fileName.contains(QChar())
        ? Status::invalidArgument(u"that is not the name of a file"_s)
        : writeTo(followed(fileName), content);
    return status.withText(u"Cannot write \"%1\": %2"_s.arg(fileName, status.text()));
}

} // namespace Qtilities::Core
