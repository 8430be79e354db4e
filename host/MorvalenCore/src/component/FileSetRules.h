#pragma once

#include "component/ComponentFiles.h"

#include <QHash>
#include <QRegularExpression>

namespace MorvalenCore {

// Chooses the file set that takes a new file, by what the sets hold and by patterns. Keeps count
// of what they hold, so that adding many files does not look at all of them each time.
class FileSetRules
{
public:
    // files must stay.
    explicit FileSetRules(const ComponentFiles &files);

    // The first set that holds files of the type that the path's suffix says or that has a
    // pattern which matches; none where there is no such set.
    FileSetId choose(const QString &path, const QList<FileSetPatterns> &patterns);

    // To be told that files of a type came into a set or went from it.
    void countFile(FileSetId set, const QString &type, int by);

private:
    bool holds(FileSetId set, const QString &type);
    bool matches(const QString &set, const QString &fileName,
                 const QList<FileSetPatterns> &patterns);

    const ComponentFiles &files;
    // How many files of which type a set holds, counted when first asked for.
    QHash<FileSetId, QHash<QString, int>> typeCounts;
    // Compiled patterns.
    QHash<QString, QRegularExpression> expressions;
};

} // namespace MorvalenCore
