#pragma once

#include "component/ItemId.h"
#include "design/SharedPropertyKeeper.h"

#include <MorvalenCore/DesignFolder.h>

#include <QList>

namespace MorvalenCore {

class DesignFolders;
class DesignState;

// A folder of a design, kept in the design's document. One item for all entries of a path there.
class FolderItem final : public DesignFolder
{
    Q_OBJECT

public:
    FolderItem(DesignFolders &owner, DesignState &designState, const QString &actualPath);

    QString getName(const Qtilities::Core::Observer *context) const override;
    // Refused: a folder is named by its path.
    bool setName(const QString &name, Qtilities::Core::Observer *context) override;
    Qtilities::Core::QtilitiesCategory category() const override;
    bool setCategory(const Qtilities::Core::QtilitiesCategory &category) override;
    QString actualPath() const override { return path; }
    void setActualPath(const QString &path) override;
    bool existsOnDisk() const override;
    bool removeFromComputer(bool permanently) override;
    QString versionControlRevision() const override;
    QString versionControlSystemName() const override;

    // The entries in the document, in its order.
    const QList<FolderId> &elements() const { return entries; }

    // For the collection: takes up an entry, and the path that entries got.
    void addElement(FolderId entry);
    void setKnownPath(const QString &newPath) { path = newPath; }

protected:
    bool event(QEvent *event) override;

private:
    DesignFolders &folders;
    DesignState &state;
    QString path;
    QList<FolderId> entries;
    SharedPropertyKeeper shared;
};

} // namespace MorvalenCore
