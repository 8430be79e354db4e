#pragma once

#include <QByteArray>
#include <QString>

// Reading files that may be anything: nothing here waits for a pipe or a device, and nothing reads
// more than it was allowed to.
namespace diskfile {

// Tells a file, and a state of it, from others. Two equal stamps mean the same contents but for
// writes within one tick of the file system's clock.
struct Stamp
{
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = -1;
    qint64 modified = 0; // nanoseconds
    qint64 changed = 0; // nanoseconds

    bool exists() const { return size >= 0; }
    bool operator==(const Stamp &) const = default;
};

struct Content
{
    QByteArray bytes;
    // As the file was before the first byte was read.
    Stamp stamp;
    // Why there is no content, in a few words without a full stop; empty when there is.
    QString refusal;
};

// The stamp of what is at a path now; one of size -1 when there is nothing.
Stamp stamp(const QString &path);

// Reads a regular file of at most so many bytes.
Content read(const QString &path, qint64 limit);

} // namespace diskfile
