#include <Qtilities/KnownFile.h>
#include <Qtilities/regularfile.h>

#include <QCryptographicHash>
#include <QFile>

#include <ctime>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace Qtilities::Core {

namespace {

constexpr qint64 nanoseconds = 1'000'000'000;
// More than that is kept as a hash. Of less the bytes are: to hash them takes longer than to
// compare them, once is enough for most.
constexpr qsizetype longestKept = 64 * 1024;
// Longer than the clock of any file system in use stands still, that of FAT for two seconds. The
// kernel's own, which local ones use, does so for ten milliseconds at most.
constexpr qint64 restingTime = 2 * nanoseconds;
constexpr qint64 restingTimeByKernel = nanoseconds / 10;

qint64 inNanoseconds(const timespec &time)
{
    return qint64(time.tv_sec) * nanoseconds + time.tv_nsec;
}

KnownFile::Stamp stampFrom(const struct stat &status)
{
    return {status.st_dev, status.st_ino, status.st_size, inNanoseconds(status.st_mtim),
            inNanoseconds(status.st_ctim)};
}

// Whether the kernel of this machine stamps the file, with all the digits of its clock. Others have
// a server's, and the older formats of ext keep whole seconds.
bool isStampedByKernel(const Descriptor &file, const KnownFile::Stamp &stamp)
{
    struct statfs system = {};
    if (stamp.changed % nanoseconds == 0 || ::fstatfs(file.get(), &system) != 0)
        return false;
    switch (system.f_type) {
    case EXT4_SUPER_MAGIC:
    case XFS_SUPER_MAGIC:
    case BTRFS_SUPER_MAGIC:
    case TMPFS_MAGIC:
        return true;
    default:
        return false;
    }
}

bool isFreshNow(const Descriptor &file, const KnownFile::Stamp &stamp)
{
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    const qint64 rested = inNanoseconds(now) - qMax(stamp.modified, stamp.changed);
    return rested < restingTime
        && (rested < restingTimeByKernel || !isStampedByKernel(file, stamp));
}

QByteArray hashOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Blake2b_256);
}

} // namespace

KnownFile::Stamp KnownFile::stampOf(const QString &fileName)
{
    struct stat status = {};
    const bool exists = ::stat(QFile::encodeName(fileName).constData(), &status) == 0;
    return exists ? stampFrom(status) : Stamp();
}

Result<KnownFile::Content> KnownFile::read(qint64 limit) const
{
    struct stat status = {};
    const Result<Descriptor> file = openRegularFile(name, &status);
    if (!file.isOk())
        return file.status();
    const Stamp stamp = stampFrom(status);
    const bool fresh = isFreshNow(file.value(), stamp);
    Result<QByteArray> bytes = readAll(file.value(), limit);
    if (!bytes.isOk())
        return bytes.status();
    return Content {std::move(bytes).value(), stamp, fresh};
}

void KnownFile::know(const Content &read, Keep keep)
{
    known = read.stamp;
    isFresh = read.isFresh;
    length = read.bytes.size();
    const bool hashed = keep == Keep::Hash && length > longestKept;
    hash = hashed ? hashOf(read.bytes) : QByteArray();
    content = hashed ? QByteArray() : read.bytes;
}

void KnownFile::knowWritten(const QByteArray &bytes)
{
    // Another process may have written since, so no stamp is to be trusted.
    Stamp stamp;
    stamp.size = bytes.size();
    know({bytes, stamp, true}, Keep::Hash);
}

QByteArray KnownFile::mark() const
{
    if (!isKnown())
        return {};
    return QByteArray::number(length) + ':' + (hash.isEmpty() ? hashOf(content) : hash).toHex();
}

void KnownFile::knowMark(const QByteArray &mark)
{
    const qsizetype colon = mark.indexOf(':');
    known = Stamp();
    content.clear();
    hash.clear();
    if (colon < 0)
        return;
    length = mark.first(colon).toLongLong();
    hash = QByteArray::fromHex(mark.sliced(colon + 1));
    // No file has such a stamp, so that the content decides.
    known.size = length;
    isFresh = true;
}

KnownFile::Disk KnownFile::look(Trust trust)
{
    lookStatus = {};
    if (!isKnown())
        return stampOf(name).exists() ? Disk::Changed : Disk::Missing;
    if (trust == Trust::Stamp && !isFresh && stampOf(name) == known)
        return Disk::Same;
    // One byte more tells whether it has grown meanwhile.
    const Result<Content> found = read(length + 1);
    if (found.isOk() && holds(found.value().bytes)) {
        known = found.value().stamp;
        isFresh = found.value().isFresh;
        return Disk::Same;
    }
    const Stamp now = stampOf(name);
    if (!now.exists())
        return Disk::Missing;
    // Another size tells as much as the content would have.
    if (now.size == known.size)
        lookStatus = found.status();
    return Disk::Changed;
}

bool KnownFile::holds(const QByteArray &bytes) const
{
    return hash.isEmpty() ? bytes == content : hashOf(bytes) == hash;
}

} // namespace Qtilities::Core
