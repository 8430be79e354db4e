#pragma once

#include "component/ItemId.h"
#include "design/FolderItem.h"
#include "design/ItemTable.h"

namespace MorvalenCore {

class DesignState;

// The folders of a design: one item for each actual path. Part of its design.
class DesignFolders
{
public:
    explicit DesignFolders(DesignState &designState) : state(designState) { }

    // Takes up what the document holds.
    void load();
    void clear() { table.clear(); }

    // See IDesign for what these do.
    DesignFolder *find(const QString &path) const { return lookUp(path); }
    DesignFolder *add(const QString &path, QString *error);
    bool remove(const QString &path);
    QList<DesignFolder *> all() const;

    // Gives a folder another path, which the design must not have yet.
    void move(FolderItem *folder, const QString &path);

    ActiveItems<DesignFolder> active;

private:
    FolderItem *takeUp(const QString &key, FolderId entry);
    FolderItem *lookUp(const QString &path) const;
    // Why the design does not take a folder of that actual path; empty when it does.
    QString refusal(const QString &text, const QString &key) const;

    DesignState &state;
    ItemTable<FolderItem, FolderId> table;
};

} // namespace MorvalenCore
