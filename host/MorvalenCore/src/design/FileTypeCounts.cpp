#include "design/FileTypeCounts.h"

#include "design/DesignState.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

FileSetId FileTypeCounts::firstSetWith(const QString &type)
{
    const ComponentFiles &files = state.document().files();
    if (!isCounted) {
        isCounted = true;
        for (const FileId &entry : files.files())
            count(entry, 1);
    }
    const auto inSets = counts.constFind(type);
    if (type == "unknown"_L1 || inSets == counts.cend())
        return {};
    for (const FileSetId &set : files.fileSets()) {
        if (inSets->value(set) > 0)
            return set;
    }
    return {};
}

void FileTypeCounts::count(FileId entry, int by)
{
    if (!isCounted)
        return;
    const ComponentFiles &files = state.document().files();
    counts[files.fileType(entry)][files.fileSet(entry)] += by;
}

} // namespace MorvalenCore
