#include "design/FileItem.h"

#include "design/DesignFiles.h"
#include "design/DesignState.h"
#include "design/itemdisk.h"
#include "disk/itempaths.h"

#include <QDynamicPropertyChangeEvent>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;

namespace MorvalenCore {

FileItem::FileItem(DesignFiles &owner, DesignState &designState, const QString &actualPath)
    : DesignFile(nullptr),
      files(owner),
      state(designState),
      path(actualPath),
      shared(this, designState)
{
}

QString FileItem::getName(const Qtilities::Core::Observer *) const { return fileName(); }

bool FileItem::setName(const QString &name, Qtilities::Core::Observer *)
{
    return name == fileName();
}

QtilitiesCategory FileItem::category() const
{
    return QtilitiesCategory::fromString(state.document().files().category(entries.first()),
                                         u"::"_s);
}

bool FileItem::setCategory(const QtilitiesCategory &category)
{
    return state.change(nullptr, [&](QString *error) {
        return state.document().files().setCategory(entries.first(), category.toString(u"::"_s),
                                                    error);
    });
}

void FileItem::setActualPath(const QString &newPath) { files.move(this, newPath); }

QString FileItem::node() const
{
    const ComponentFiles &document = state.document().files();
    return document.name(document.fileSet(entries.first()));
}

QString FileItem::generatedVersion() const
{
    return state.document().files().generated(entries.first()).version;
}

bool FileItem::existsOnDisk() const { return QFileInfo(pathOnDisk(path, state.folder())).isFile(); }

bool FileItem::removeFromComputer(bool permanently)
{
    return removeItemFromDisk(state, path, ItemKind::File, permanently);
}

QString FileItem::versionControlRevision() const { return itemHistory(state, path).revision; }

QString FileItem::versionControlSystemName() const { return itemHistory(state, path).systemName; }

void FileItem::addElement(FileId entry)
{
    entries.append(entry);
    shared.load(entry);
}

bool FileItem::event(QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange) {
        shared.propertyChanged(static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName(),
                               QList<ItemId>(entries.cbegin(), entries.cend()));
    }
    return DesignFile::event(event);
}

} // namespace MorvalenCore
