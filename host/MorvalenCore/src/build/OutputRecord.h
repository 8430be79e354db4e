#pragma once

#include <Qtilities/Status.h>

#include <QList>
#include <QString>

namespace MorvalenCore {

// A file that a build has made.
struct MadeOutput
{
    // Absolute and clean.
    QString path;
    QString configuration;
    // The version that the design had.
    QString version;

    bool operator==(const MadeOutput &) const = default;
};

// What builds into one target folder have made, kept in a file there, so that nothing of a build
// gets into what is under version control. Paths in it are of the working folder where they lie
// below it: both folders can be moved together.
class OutputRecord
{
public:
    // Both folders absolute and clean.
    OutputRecord(const QString &targetFolder, const QString &workingFolder);

    // In the target folder.
    static QString fileName();

    // Nothing when there is no record. An output that lies neither below the target folder nor
    // below the working folder is passed over, whoever wrote it there.
    Qtilities::Core::Result<QList<MadeOutput>> read() const;

    // Replaces the record; without outputs it goes.
    Qtilities::Core::Status write(const QList<MadeOutput> &outputs) const;

private:
    QString path() const;

    QString target;
    QString working;
};

} // namespace MorvalenCore
