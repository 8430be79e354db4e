#pragma once

#include "items/FileItem.h"
#include "items/FileTypeCounts.h"
#include "items/PathItems.h"

#include <functional>

namespace MorvalenCore {

// The files of a design. Part of it.
class DesignFiles final : public PathItems<FileItem, DesignFile, FileId>
{
public:
    explicit DesignFiles(DesignState &designState);

    void clear();

    // See IDesign for what these do.
    DesignFile *findByName(const QString &fileName) const;
    Qtilities::Core::Result<DesignFile *> add(const QString &path, const QString &node);
    QList<DesignFile *> underNode(const QString &node, bool recursive) const;
    bool hasNode(const QString &node) const;
    QStringList nodeNames() const;
    // Moves a file to another file set, which is made where there is none.
    Qtilities::Core::Status moveTo(const QString &path, const QString &node);

    // What builds have made is kept elsewhere, and the document does not change by it. A file that
    // the design does not have comes into the node of those; so it stands until somebody changes
    // something about it, which the document has to keep.
    static QString nodeOfMade() { return QStringLiteral("generated"); }
    void setMade(const QString &path, const GeneratedInfo &info);
    // Called with the path of such a file when it is removed or moved.
    std::function<void(const QString &path)> madeIsGone;

    // For the items: gives one of them its element.
    Qtilities::Core::Status enterDocument(FileItem &item);

private:
    void removing(FileId entry) override { types.removing(entry); }
    void removing(FileItem &item) override;
    void moving(FileItem &item) override { removing(item); }
    void removed() override;
    void restored(FileId entry) override { types.added(entry); }
    Qtilities::Core::Status checkMove(const FileItem &item, const QString &node) const;
    Qtilities::Core::Status moveEntry(FileId entry, const QString &node);
    QList<DesignFile *> madeUnderNode(const QString &node, bool recursive) const;
    Qtilities::Core::Result<FileId> addEntry(const QString &text, const QString &node);
    Qtilities::Core::Result<FileSetId> fileSetOf(const QString &text, const QString &node);
    // For the file that is to be added under the text. Never a set of generated files: whatever
    // lies in one is deleted when the design is cleaned.
    Qtilities::Core::Result<FileSetId> fileSetFor(const QString &text);
    bool isSetOrGroup(const QString &node) const;
    bool holdsGeneratedFiles(const QString &fileSet) const;
    Qtilities::Core::Result<FileSetId> fileSetNamed(const QString &name);
    Qtilities::Core::Result<FileSetId> fileSetForFiles(const QString &name);
    QList<FileId> entriesUnderNode(const QString &node, bool recursive) const;

    FileTypeCounts types;
    // Made because files needed them, and gone with the last of those. One that was named by
    // whoever added the file stays.
    QList<FileSetId> setsForFiles;
};

} // namespace MorvalenCore
