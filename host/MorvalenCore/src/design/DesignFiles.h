#pragma once

#include "component/ItemId.h"
#include "design/FileItem.h"
#include "design/FileTypeCounts.h"
#include "design/ItemTable.h"

namespace MorvalenCore {

class DesignState;

// The files of a design: one item for each actual path. Part of its design.
class DesignFiles
{
public:
    explicit DesignFiles(DesignState &designState);

    // Takes up what the document holds.
    void load();
    void clear();

    DesignFile *find(const QString &path) const;
    DesignFile *findByName(const QString &fileName) const;

    // See IDesign for what these do.
    DesignFile *add(const QString &path, const QString &node, QString *error);
    bool remove(const QString &path);
    QList<DesignFile *> underNode(const QString &node, bool recursive) const;
    bool hasNode(const QString &node) const;

    // Gives a file another path, which the design must not have yet.
    void move(FileItem *file, const QString &path);

    // Marks a file as made by a build of the design's current version.
    bool setGenerated(DesignFile *file, const QString &by, QString *error);

    ActiveItems<DesignFile> active;

private:
    FileItem *takeUp(const QString &key, FileId entry);
    FileItem *lookUp(const QString &path) const;
    // Why the design does not take a file of that actual path; empty when it does.
    QString refusal(const QString &text, const QString &key) const;
    // For the file that is to be added under the text.
    FileSetId fileSetFor(const QString &text, QString *error);
    FileSetId fileSetNamed(const QString &name, QString *error);
    QList<FileId> entriesUnderNode(const QString &node, bool recursive) const;

    DesignState &state;
    ItemTable<FileItem, FileId> table;
    FileTypeCounts types;
};

} // namespace MorvalenCore
