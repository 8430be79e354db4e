#pragma once

#include "document/DocumentFiles.h"

#include <QHash>

namespace MorvalenCore {

class DesignState;

// Counts the files of each type in each file set, so that a new file finds its like at once; the
// years of a language are one type. The document is counted when it is first asked for.
class FileTypeCounts
{
public:
    explicit FileTypeCounts(const DesignState &designState) : state(designState) { }

    // The first file set that holds a file of the type and is not one of generated files; none
    // for an unknown type.
    FileSetId firstSetWith(const QString &type);

    // An entry was added, or will be removed.
    void added(FileId entry) { count(entry, 1); }
    void removing(FileId entry) { count(entry, -1); }

    // There is another document now.
    void forget();

private:
    void count(FileId entry, int by);

    const DesignState &state;
    // By type, then by file set.
    QHash<QString, QHash<FileSetId, qsizetype>> counts;
    bool isCounted = false;
};

} // namespace MorvalenCore
