#include <Qtilities/regularfile.h>

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Qtilities::Core {

namespace {

using namespace Qt::Literals::StringLiterals;

// Most files are small, and what is asked for stays with what was read.
constexpr qint64 smallestPiece = 8 * 1024;
constexpr qint64 largestPiece = 64 * 1024;

Status failureOfSystem()
{
    return {errno == ENOENT ? Status::Kind::NotFound : Status::Kind::Io, qt_error_string(errno)};
}

Status regularity(const struct stat &status)
{
    if (S_ISDIR(status.st_mode))
        return Status::invalidArgument(u"it is a folder"_s);
    return S_ISREG(status.st_mode) ? Status() : Status::invalidArgument(u"it is not a file"_s);
}

} // namespace

Result<Descriptor> openRegularFile(const QString &fileName, struct stat *opened)
{
    if (fileName.isEmpty() || fileName.contains(QChar()))
        return Status::invalidArgument(u"that is not the name of a file"_s);
    const QByteArray name = QFile::encodeName(fileName);
    struct stat status = {};
    // Opening alone can set a device going.
    if (::stat(name.constData(), &status) != 0)
        return failureOfSystem();
    if (const Status regular = regularity(status); !regular.isOk())
        return regular;
    Descriptor file = Descriptor::open(name, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    // It may be another one by now.
    if (!file || ::fstat(file.get(), &status) != 0)
        return failureOfSystem();
    if (const Status regular = regularity(status); !regular.isOk())
        return regular;
    if (opened)
        *opened = status;
    return Result<Descriptor>(std::move(file));
}

Result<Descriptor> makeRegularFile(const QString &fileName)
{
    if (fileName.isEmpty() || fileName.contains(QChar()))
        return Status::invalidArgument(u"that is not the name of a file"_s);
    const QByteArray name = QFile::encodeName(fileName);
    struct stat status = {};
    if (::lstat(name.constData(), &status) == 0) {
        if (const Status regular = regularity(status); !regular.isOk())
            return regular;
    }
    Descriptor file =
        Descriptor::open(name, O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, 0666);
    if (!file || ::fstat(file.get(), &status) != 0)
        return failureOfSystem();
    if (const Status regular = regularity(status); !regular.isOk())
        return regular;
    if (::ftruncate(file.get(), 0) != 0)
        return failureOfSystem();
    return Result<Descriptor>(std::move(file));
}

Result<QByteArray> readRegularFile(const QString &fileName, qint64 limit)
{
    const Result<Descriptor> file = openRegularFile(fileName);
    return file.isOk() ? readAll(file.value(), limit) : file.status();
}

Result<QByteArray> readAll(const Descriptor &file, qint64 limit)
{
    QByteArray content;
    while (content.size() < limit) {
        const qsizetype size = content.size();
        content.resize(
            size + std::min(std::clamp<qint64>(size, smallestPiece, largestPiece), limit - size));
        const ssize_t count =
            ::read(file.get(), content.data() + size, size_t(content.size() - size));
        content.resize(size + std::max<ssize_t>(count, 0));
        if (count < 0 && errno != EINTR)
            return failureOfSystem();
        if (count == 0)
            break;
    }
    return content;
}

} // namespace Qtilities::Core
