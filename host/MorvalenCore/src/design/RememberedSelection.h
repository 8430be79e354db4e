#pragma once

#include "items/DesignFiles.h"
#include "items/DesignFolders.h"
#include "items/DesignProperties.h"

#include <QStringList>

namespace MorvalenCore {

// The active items of a design by path and name, so that they can be active again when new items
// have taken their places.
class RememberedSelection
{
public:
    RememberedSelection(DesignFiles &designFiles, DesignFolders &designFolders,
                        DesignProperties &designProperties);

    // Those that are still there.
    void restore() const;

private:
    DesignFiles &files;
    DesignFolders &folders;
    DesignProperties &properties;
    QStringList filePaths;
    QStringList folderPaths;
    QStringList propertyNames;
};

} // namespace MorvalenCore
