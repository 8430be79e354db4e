#include <Qtilities/KnownFile.h>
#include <Qtilities/regularfile.h>

#include <QCryptographicHash>
#include <QFile>

#include <ctime>
#include <sys/stat.h>

namespace Qtilities::Core {

namespace {

constexpr qint64 nanoseconds = 1'000'000'000;
// More than that is kept as a hash. Of less the bytes are: to hash them takes longer than to
// compare them, once is enough for most.
constexpr qsizetype longestKept = 64 * 1024;
// Coarser than the clock of any file system in use.
constexpr qint64 restingTime = 2 * nanoseconds;

qint64 inNanoseconds(const timespec &time)
{
    return qint64(time.tv_sec) * nanoseconds + time.tv_nsec;
}

KnownFile::Stamp stampFrom(const struct stat &status)
{
    return {status.st_dev, status.st_ino, status.st_size, inNanoseconds(status.st_mtim),
            inNanoseconds(status.st_ctim)};
}

bool isFreshNow(const KnownFile::Stamp &stamp)
{
    timespec now = {};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return inNanoseconds(now) - qMax(stamp.modified, stamp.changed) < restingTime;
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
    const bool fresh = isFreshNow(stamp);
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
    // Another process may have written since, so the stamp is not to be trusted.
    know({bytes, stampOf(name), true}, Keep::Hash);
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
    const Stamp now = stampOf(name);
    if (!now.exists())
        return Disk::Missing;
    if (trust == Trust::Stamp && isKnown() && now == known && !isFresh)
        return Disk::Same;
    if (!isKnown() || now.size != known.size)
        return Disk::Changed;
    // One byte more tells whether it has grown meanwhile.
    const Result<Content> found = read(length + 1);
    lookStatus = found.status();
    if (!found.isOk() || !holds(found.value().bytes))
        return Disk::Changed;
    known = found.value().stamp;
    isFresh = found.value().isFresh;
    return Disk::Same;
}

bool KnownFile::holds(const QByteArray &bytes) const
{
    return hash.isEmpty() ? bytes == content : hashOf(bytes) == hash;
}

} // namespace Qtilities::Core
