#pragma once

#include "document/DesignDocument.h"
#include "items/itemdisk.h"

namespace MorvalenCore {

// What differs between the items of a design that stand for paths, by the kind of their elements.

inline DocumentFiles &partOf(DesignDocument &document, FileId) { return document.files(); }
inline DocumentFolders &partOf(DesignDocument &document, FolderId) { return document.folders(); }

inline QList<FileId> elementsOf(const DocumentFiles &files) { return files.files(); }
inline QList<FolderId> elementsOf(const DocumentFolders &folders) { return folders.folders(); }

constexpr ItemKind kindOf(FileId) { return ItemKind::File; }
constexpr ItemKind kindOf(FolderId) { return ItemKind::Folder; }

constexpr QStringView wordFor(ItemKind kind)
{
    return kind == ItemKind::File ? u"file" : u"folder";
}

} // namespace MorvalenCore
