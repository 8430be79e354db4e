#pragma once

#include "build/OutputRecord.h"
#include "items/ArrivalOrder.h"

#include <QSet>

#include <optional>

namespace MorvalenCore {

class DesignFiles;
class DesignState;

// The records of a design's target folders: what they hold are files of the design. Part of its
// configurations.
class BuildRecords
{
public:
    BuildRecords(DesignState &designState, DesignFiles &fileItems);
    ~BuildRecords();
    BuildRecords(const BuildRecords &) = delete;
    BuildRecords &operator=(const BuildRecords &) = delete;

    // Takes up the record of a target folder, absolute and clean, if it has one.
    void load(const QString &targetFolder);
    // A record that is to be written, by whatever thread.
    struct Writing
    {
        OutputRecord record;
        QList<MadeOutput> outputs;

        Qtilities::Core::Status write() const { return record.write(outputs); }
    };
    // Notes what a build has made there. Nothing is to be written when all was known.
    std::optional<Writing> note(const QString &targetFolder, const QList<MadeOutput> &outputs);
    // Writes down what has gone since. A record that cannot be written is named in the log.
    void save();
    void clear() { records.clear(); }

private:
    // By path.
    using Outputs = ArrivalOrder<QString, MadeOutput>;

    void forget(const QString &path);
    Writing writing(const QString &targetFolder) const;

    DesignState &state;
    DesignFiles &files;
    // By target folder.
    QHash<QString, Outputs> records;
    QSet<QString> changed;
};

} // namespace MorvalenCore
