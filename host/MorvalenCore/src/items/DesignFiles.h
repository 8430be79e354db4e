#pragma once

#include "items/FileItem.h"
#include "items/FileTypeCounts.h"
#include "items/PathItems.h"

namespace MorvalenCore {

// The files of a design. Part of it.
class DesignFiles final : public PathItems<FileItem, DesignFile, FileId>
{
public:
    explicit DesignFiles(DesignState &designState);

    // See IDesign for what these do.
    DesignFile *findByName(const QString &fileName) const;
    Qtilities::Core::Result<DesignFile *> add(const QString &path, const QString &node);
    QList<DesignFile *> underNode(const QString &node, bool recursive) const;
    bool hasNode(const QString &node) const;
    QStringList nodeNames() const;

    // Marks a file as made by a build of the design's current version.
    Qtilities::Core::Status setGenerated(DesignFile *file, const QString &by);

private:
    void removing(FileId entry) override { types.removing(entry); }
    Qtilities::Core::Result<FileId> addEntry(const QString &text, const QString &node);
    // For the file that is to be added under the text. Never a set of generated files: whatever
    // lies in one is deleted when the design is cleaned.
    Qtilities::Core::Result<FileSetId> fileSetFor(const QString &text);
    bool holdsGeneratedFiles(const QString &fileSet) const;
    Qtilities::Core::Result<FileSetId> fileSetNamed(const QString &name);
    QList<FileId> entriesUnderNode(const QString &node, bool recursive) const;

    FileTypeCounts types;
};

} // namespace MorvalenCore
