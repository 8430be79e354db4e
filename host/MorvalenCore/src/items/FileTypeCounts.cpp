#include "items/FileTypeCounts.h"

#include "items/DesignState.h"

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// "vhdlSource" of "vhdlSource-93": the same kind of file.
QString familyOf(const QString &type) { return type.section(u'-', 0, 0); }

} // namespace

FileSetId FileTypeCounts::firstSetWith(const QString &type)
{
    const DocumentFiles &files = state.document().files();
    if (!isCounted) {
        isCounted = true;
        for (const FileId &entry : files.files())
            count(entry, 1);
    }
    const auto inSets = counts.constFind(familyOf(type));
    if (type == "unknown"_L1 || inSets == counts.cend())
        return {};
    for (const FileSetId &set : files.fileSets()) {
        if (inSets->value(set) > 0 && !files.isInGeneratedGroup(set))
            return set;
    }
    return {};
}

void FileTypeCounts::forget()
{
    counts.clear();
    isCounted = false;
}

void FileTypeCounts::count(FileId entry, int by)
{
    if (!isCounted)
        return;
    const DocumentFiles &files = state.document().files();
    counts[familyOf(files.fileType(entry))][files.fileSet(entry)] += by;
}

} // namespace MorvalenCore
