#pragma once

#include <Qtilities/KnownFile.h>

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

    const QString &path() const { return file.path(); }

    Qtilities::Core::Result<QByteArray> read();

    // Replaces the file by bytes, atomically. Refuses when the file differs from what was read or
    // written last. A file that is gone is written anew.
    Qtilities::Core::Status write(const QByteArray &bytes);

    // The same, whatever is there.
    Qtilities::Core::Status overwrite(const QByteArray &bytes);

    // What has become of the file since it was read or written last.
    Qtilities::Core::KnownFile::Disk look()
    {
        return file.look(Qtilities::Core::KnownFile::Trust::Stamp);
    }

private:
    Qtilities::Core::Status checkPath() const;
    Qtilities::Core::Status checkUnchanged();
    bool holds(const QByteArray &bytes) const;

    Qtilities::Core::KnownFile file;
    // What a write may have put there, when it failed and the file could not be read.
    std::optional<QByteArray> unconfirmed;
};

} // namespace MorvalenCore
