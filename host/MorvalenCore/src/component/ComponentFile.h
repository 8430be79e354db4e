#pragma once

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace MorvalenCore {

// The file of a component document on disk: reads it whole, and writes it only while it is as it
// was read or last written.
class ComponentFile
{
public:
    // Larger files are refused before they are read.
    static constexpr std::int64_t greatestSize = 256 << 20;

    // Path is absolute and clean.
    explicit ComponentFile(const QString &path);

    const QString &path() const { return filePath; }

    Qtilities::Core::Result<QByteArray> read();

    // Replaces the file by bytes, atomically. Refuses when the file differs from what was read or
    // written last: size and time of change are compared, and the content where they do not
    // settle it. A file that is gone is written anew.
    Qtilities::Core::Status write(const QByteArray &bytes);

private:
    Qtilities::Core::Status checkPath() const;

    struct Stamp
    {
        std::int64_t size = 0;
        // The second cannot be set back, as programs do that keep the times of what they copy.
        std::int64_t modified = 0;
        std::int64_t changed = 0;
        // Whether the file had not rested when it was looked at, so that another change may
        // carry the same times.
        bool isFresh = false;
    };

    bool isChanged() const;
    std::optional<Stamp> stampOf() const;
    bool holds(const QByteArray &bytes) const;
    void remember(const QByteArray &bytes);

    QString filePath;
    // None for a file that was not there.
    std::optional<Stamp> stamp;
    QByteArray contentHash;
    // Hashed only when needed: shares the bytes that the document holds anyway.
    QByteArray contentRead;
};

} // namespace MorvalenCore
