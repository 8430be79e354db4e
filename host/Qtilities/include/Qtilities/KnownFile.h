#pragma once

#include <Qtilities/QtilitiesExport.h>
#include <Qtilities/Status.h>

#include <QByteArray>
#include <QString>

namespace Qtilities::Core {

// What somebody read of a file or wrote to it last, and whether that is still what is on disk. A
// value: a copy goes its own way. Nothing but regular files is read, see regularfile.h.
class QTILITIES_EXPORT KnownFile
{
public:
    // Tells a file, and a state of it, from others.
    struct Stamp
    {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = -1;
        qint64 modified = 0; // nanoseconds
        // Cannot be set back, as programs do with the other that keep the times of what they copy.
        qint64 changed = 0; // nanoseconds

        bool exists() const { return size >= 0; }
        bool operator==(const Stamp &) const = default;
    };
    // That of what is under a name now.
    static Stamp stampOf(const QString &fileName);

    struct Content
    {
        QByteArray bytes;
        // As the file was before the first byte was read.
        Stamp stamp;
        // Whether the file had not rested then, so that another change may carry the same time.
        bool isFresh = true;
    };

    explicit KnownFile(const QString &fileName) : name(fileName) { }

    const QString &path() const { return name; }

    // What is on disk now, cut off after that many bytes; changes nothing that is known. The
    // sentence of a failure is a reason only.
    Result<Content> read(qint64 limit) const;

    // From now on that is known. Of Keep::Hash no more than 64 kB stay in memory, Keep::Bytes is
    // for who holds the bytes anyway.
    enum class Keep { Hash, Bytes };
    void know(const Content &content, Keep keep);
    // The same for bytes that were just written.
    void knowWritten(const QByteArray &bytes);
    // Nothing is known at first: the file is one that was not there.
    bool isKnown() const { return known.exists(); }

    // What is known, in a few bytes that can be kept, and knowing what they tell.
    QByteArray mark() const;
    void knowMark(const QByteArray &mark);

    enum class Disk { Same, Changed, Missing };
    // Compares what is on disk with what is known, byte by byte where the stamps do not settle it
    // or are not trusted.
    enum class Trust { Stamp, Nothing };
    Disk look(Trust trust);
    // A failure where the last look answered Changed because it could not read the file.
    const Status &statusOfLook() const { return lookStatus; }

private:
    bool holds(const QByteArray &bytes) const;

    QString name;
    Stamp known;
    bool isFresh = true;
    qint64 length = 0;
    QByteArray hash;
    QByteArray content;
    Status lookStatus;
};

} // namespace Qtilities::Core
