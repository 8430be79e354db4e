#pragma once

#include "vcs/GitHistory.h"

#include <MorvalenCore/AbstractDesignLinkedItem.h>

#include <QString>

namespace MorvalenCore {

class DesignState;

enum class ItemKind { File, Folder };

// Whether the file or folder that an item with that actual path stands for is on disk, and is one.
bool isItemOnDisk(const DesignState &state, const QString &actualPath, ItemKind kind);

// Deletes the file or folder that an item with that actual path stands for. It must lie below the
// design's folder, with no link on the way.
Qtilities::Core::Status removeItemFromDisk(const DesignState &state, const QString &actualPath,
                                           ItemKind kind, bool permanently);

// What version control knows of the item with that actual path.
GitHistory itemHistory(const DesignState &state, const QString &actualPath);

// All of that later; see AbstractDesignLinkedItem.
AbstractDesignLinkedItem::StateLookup itemStateLookup(const DesignState &state,
                                                      const QString &actualPath, ItemKind kind);

} // namespace MorvalenCore
