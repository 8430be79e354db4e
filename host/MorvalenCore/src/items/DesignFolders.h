#pragma once

#include "items/FolderItem.h"
#include "items/PathItems.h"

namespace MorvalenCore {

// The folders of a design. Part of it.
class DesignFolders final : public PathItems<FolderItem, DesignFolder, FolderId>
{
public:
    explicit DesignFolders(DesignState &designState) : PathItems(designState) { }

    // See IDesign for what these do.
    Qtilities::Core::Result<DesignFolder *> add(const QString &path);
    QList<DesignFolder *> all() const;
};

} // namespace MorvalenCore
