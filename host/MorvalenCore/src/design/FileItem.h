#pragma once

#include "component/ItemId.h"
#include "design/SharedPropertyKeeper.h"

#include <MorvalenCore/DesignFile.h>

#include <QList>

namespace MorvalenCore {

class DesignFiles;
class DesignState;

// A file of a design, kept in the design's document. One item for all entries of a path there.
class FileItem final : public DesignFile
{
    Q_OBJECT

public:
    FileItem(DesignFiles &owner, DesignState &designState, const QString &actualPath);

    QString getName(const Qtilities::Core::Observer *context) const override;
    // Refused: a file is named by its path.
    bool setName(const QString &name, Qtilities::Core::Observer *context) override;
    Qtilities::Core::QtilitiesCategory category() const override;
    bool setCategory(const Qtilities::Core::QtilitiesCategory &category) override;
    QString actualPath() const override { return path; }
    void setActualPath(const QString &path) override;
    QString node() const override;
    QString generatedVersion() const override;
    bool existsOnDisk() const override;
    bool removeFromComputer(bool permanently) override;
    QString versionControlRevision() const override;
    QString versionControlSystemName() const override;

    // The entries in the document, in its order.
    const QList<FileId> &elements() const { return entries; }

    // For the collection: takes up an entry, and the path that entries got.
    void addElement(FileId entry);
    void setKnownPath(const QString &newPath) { path = newPath; }

protected:
    bool event(QEvent *event) override;

private:
    DesignFiles &files;
    DesignState &state;
    QString path;
    QList<FileId> entries;
    SharedPropertyKeeper shared;
};

} // namespace MorvalenCore
