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
    DesignFile *add(const QString &path, const QString &node, QString *error);
    QList<DesignFile *> underNode(const QString &node, bool recursive) const;
    bool hasNode(const QString &node) const;
    QStringList nodeNames() const;

    // Marks a file as made by a build of the design's current version.
    bool setGenerated(DesignFile *file, const QString &by, QString *error);

private:
    void removing(FileId entry) override { types.removing(entry); }
    FileId addEntry(const QString &text, const QString &node, QString *error);
    // For the file that is to be added under the text. Never a set of generated files: whatever
    // lies in one is deleted when the design is cleaned.
    FileSetId fileSetFor(const QString &text, QString *error);
    bool holdsGeneratedFiles(const QString &fileSet) const;
    FileSetId fileSetNamed(const QString &name, QString *error);
    QList<FileId> entriesUnderNode(const QString &node, bool recursive) const;

    FileTypeCounts types;
};

} // namespace MorvalenCore
