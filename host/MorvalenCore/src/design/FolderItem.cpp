#include "design/FolderItem.h"

#include "design/DesignFolders.h"
#include "design/DesignState.h"
#include "design/itemdisk.h"
#include "disk/itempaths.h"

#include <QDynamicPropertyChangeEvent>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;

namespace MorvalenCore {

FolderItem::FolderItem(DesignFolders &owner, DesignState &designState, const QString &actualPath)
    : DesignFolder(nullptr),
      folders(owner),
      state(designState),
      path(actualPath),
      shared(this, designState)
{
}

QString FolderItem::getName(const Qtilities::Core::Observer *) const { return fileName(); }

bool FolderItem::setName(const QString &name, Qtilities::Core::Observer *)
{
    return name == fileName();
}

QtilitiesCategory FolderItem::category() const
{
    return QtilitiesCategory::fromString(state.document().folders().category(entries.first()),
                                         u"::"_s);
}

bool FolderItem::setCategory(const QtilitiesCategory &category)
{
    return state.change(nullptr, [&](QString *error) {
        return state.document().folders().setCategory(entries.first(), category.toString(u"::"_s),
                                                      error);
    });
}

void FolderItem::setActualPath(const QString &newPath) { folders.move(this, newPath); }

bool FolderItem::existsOnDisk() const
{
    return QFileInfo(pathOnDisk(path, state.folder())).isDir();
}

bool FolderItem::removeFromComputer(bool permanently)
{
    return removeItemFromDisk(state, path, ItemKind::Folder, permanently);
}

QString FolderItem::versionControlRevision() const { return itemHistory(state, path).revision; }

QString FolderItem::versionControlSystemName() const { return itemHistory(state, path).systemName; }

void FolderItem::addElement(FolderId entry)
{
    entries.append(entry);
    shared.load(entry);
}

bool FolderItem::event(QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange) {
        shared.propertyChanged(static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName(),
                               QList<ItemId>(entries.cbegin(), entries.cend()));
    }
    return DesignFolder::event(event);
}

} // namespace MorvalenCore
