#pragma once

#include "items/PathItem.h"

#include <MorvalenCore/DesignFolder.h>

namespace MorvalenCore {

class DesignFolders;

// A folder of a design.
class FolderItem final : public PathItem<DesignFolder, FolderId, DesignFolders>
{
public:
    using Owner = DesignFolders;
    using PathItem::PathItem;
};

} // namespace MorvalenCore
