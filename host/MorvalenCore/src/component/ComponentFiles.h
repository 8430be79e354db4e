#pragma once

#include "document/DocumentFiles.h"

#include <QHash>

namespace MorvalenCore {

class ComponentTree;

// File sets and files of a component document.
class ComponentFiles final : public DocumentFiles
{
public:
    explicit ComponentFiles(ComponentTree &tree);

    // All in document order.
    QList<FileSetId> fileSets() const override;
    QList<FileId> files() const override;
    QList<FileId> files(FileSetId set) const override;
    // Whether the item is (still) in the document.
    bool contains(FileId file) const;
    bool contains(FileSetId set) const;

    QString name(FileSetId set) const override;
    QStringList groups(FileSetId set) const override;
    // Whether all files of the set count as generated.
    bool isInGeneratedGroup(FileSetId set) const override;
    // The first file set of that exact name.
    FileSetId fileSet(const QString &name) const override;

    FileSetId fileSet(FileId file) const override;
    QString path(FileId file) const override;
    // The first fileType or userFileType; empty when there is none.
    QString fileType(FileId file) const override;
    // Levels joined by "::". Our own, else the first group of the file set, else its name.
    QString category(FileId file) const override;
    // Whether the category is our own.
    bool hasOwnCategory(FileId file) const;
    // A file of a set in the group generatedFiles without an entry of ours is generated, by
    // nobody, with the current version of the design. Nothing for a file that is not generated.
    std::optional<GeneratedInfo> generated(FileId file) const override;
    // With an empty command when the file has none.
    FileBuildCommand buildCommand(FileId file) const override;
    // Those with a command, in document order.
    QList<FileId> filesWithBuildCommand() const override;

    // Appends an empty file set; its name is a single word (an xs:NMTOKEN where the generation
    // asks for one is not looked after).
    Qtilities::Core::Status checkPath(const QString &path) const override;
    Qtilities::Core::Result<FileSetId> addFileSet(const QString &name) override;
    void removeEmpty(FileSetId set) override;

    // Appends a file to a set; its fileType comes from the suffix.
    Qtilities::Core::Result<FileId> add(const QString &path, FileSetId set) override;
    // Removes this one entry. The file set stays, even when it is empty now.
    void remove(FileId file) override;
    // Refused for an entry with comments between its elements.
    Qtilities::Core::Result<FileId> move(FileId file, FileSetId set) override;

    Qtilities::Core::Status setPath(FileId file, const QString &path) override;
    // Our own category; an empty text removes it, so that the standard one shows again.
    Qtilities::Core::Status setCategory(FileId file, const QString &category) override;
    // No info removes our entry; refused for a file whose file set says that it is generated.
    Qtilities::Core::Status setGenerated(FileId file,
                                         const std::optional<GeneratedInfo> &info) override;

    // The standard's fileType for a file name by its suffix, "unknown" for an unknown one; the
    // generations differ in the words they know.
    QString fileTypeOf(const QString &path) const override;

private:
    void appendFiles(FileSetId set, QList<FileId> *list) const;
    QString standardCategory(FileId file) const;

    ComponentTree &tree;
    // Groups are never changed here, and finding them takes a look at all files of a set.
    mutable QHash<FileSetId, QStringList> knownGroups;
};

} // namespace MorvalenCore
