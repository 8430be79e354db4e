#include "component/ComponentFile.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/regularfile.h>

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

constexpr std::int64_t nanoseconds = 1'000'000'000;
// Coarser than the clock of any file system in use.
constexpr std::int64_t restingTime = 2 * nanoseconds;

std::int64_t inNanoseconds(const timespec &time)
{
    return std::int64_t(time.tv_sec) * nanoseconds + time.tv_nsec;
}

QByteArray hashOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256);
}

} // namespace

ComponentFile::ComponentFile(const QString &path) : filePath(path) { }

std::optional<ComponentFile::Stamp> ComponentFile::stampOf() const
{
    struct stat status = {};
    if (::stat(QFile::encodeName(filePath).constData(), &status) != 0)
        return {};
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t modified = inNanoseconds(status.st_mtim);
    const std::int64_t changed = inNanoseconds(status.st_ctim);
    return Stamp {status.st_size, modified, changed,
                  inNanoseconds(now) - std::max(modified, changed) < restingTime};
}

// Whether there is something that can be read as a whole.
Status ComponentFile::checkPath() const
{
    // The system would take the part in front of the zero for the name.
    if (filePath.contains(QChar(0)))
        return Status::invalidArgument(u"The path holds a zero byte."_s);
    struct stat status = {};
    if (::stat(QFile::encodeName(filePath).constData(), &status) != 0) {
        const auto kind = errno == ENOENT ? Status::Kind::NotFound : Status::Kind::Io;
        return {kind, u"The file cannot be read: %1."_s.arg(qt_error_string(errno))};
    }
    if (S_ISDIR(status.st_mode))
        return Status::invalidArgument(u"The path is a directory, not a component file."_s);
    if (!S_ISREG(status.st_mode))
        return Status::invalidArgument(u"The path is no regular file."_s);
    if (status.st_size > greatestSize) {
        return Status::malformed(u"The file is larger than %1 MiB."_s.arg(greatestSize >> 20));
    }
    return {};
}

Result<QByteArray> ComponentFile::read()
{
    if (const Status status = checkPath(); !status.isOk())
        return status;
    stamp = stampOf();
    // One byte more tells whether it has grown meanwhile.
    const qint64 size = stamp ? stamp->size : 0;
    Result<QByteArray> content = Qtilities::Core::readRegularFile(filePath, size + 1);
    if (!content.isOk() || content.value().size() != size) {
        return Status::io(u"The file cannot be read: %1."_s.arg(
            content.isOk() ? u"it changes meanwhile"_s : content.status().text()));
    }
    contentRead = std::move(content).value();
    return contentRead;
}

bool ComponentFile::isChanged() const
{
    const auto now = stampOf();
    if (!now)
        return false;
    if (!stamp)
        return true;
    if (now->size != stamp->size)
        return true;
    if (now->modified == stamp->modified && now->changed == stamp->changed && !stamp->isFresh)
        return false;
    const Result<QByteArray> content = Qtilities::Core::readRegularFile(filePath);
    if (!content.isOk())
        return true;
    return contentHash.isEmpty() ? content.value() != contentRead
                                 : hashOf(content.value()) != contentHash;
}

Status ComponentFile::write(const QByteArray &bytes)
{
    if (isChanged()) {
        return stamp
            ? Status::conflict(
                u"The file %1 has changed on disk since it was read; it is not overwritten."_s.arg(
                    filePath))
            : Status::alreadyExists(
                u"The file %1 is there already; it is not overwritten."_s.arg(filePath));
    }
    const Status written = Qtilities::Core::writeFileAtomically(filePath, bytes);
    if (written.isOk() || holds(bytes))
        remember(bytes);
    return written;
}

// A write can fail after the new file has taken its place.
bool ComponentFile::holds(const QByteArray &bytes) const
{
    const Result<QByteArray> content = Qtilities::Core::readRegularFile(filePath);
    return content.isOk() && content.value() == bytes;
}

void ComponentFile::remember(const QByteArray &bytes)
{
    stamp = stampOf();
    contentHash = hashOf(bytes);
    contentRead.clear();
}

} // namespace MorvalenCore
