#pragma once

#include "component/ItemId.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace MorvalenCore {

class ComponentTree;

// That a file is the product of a build or a generator.
struct GeneratedInfo
{
    // Who made it; may be empty.
    QString by;
    // The version of the design that made it; empty where the design had none.
    QString version;

    bool operator==(const GeneratedInfo &) const = default;
};

// The standard's buildCommand of a file; run as COMMAND FLAGS FILE in the component's folder.
struct FileBuildCommand
{
    QString command;
    QString flags;
    // Whether flags replace the default ones of the file set's builder for the file's type.
    bool replaceDefaultFlags = false;
    // The output.
    QString targetName;

    bool operator==(const FileBuildCommand &) const = default;
};

// File sets and files of a component document. One file on disk may have several entries, each
// with a FileId of its own; the same path is never merged here. Paths are texts as the document
// has them: relative to the document's folder, environment variables and Windows spellings kept.
class ComponentFiles
{
public:
    explicit ComponentFiles(ComponentTree &tree);

    // All in document order.
    QList<FileSetId> fileSets() const;
    QList<FileId> files() const;
    QList<FileId> files(FileSetId set) const;
    // Whether the item is (still) in the document.
    bool contains(FileId file) const;
    bool contains(FileSetId set) const;

    QString name(FileSetId set) const;
    QStringList groups(FileSetId set) const;
    // Whether all files of the set count as generated.
    bool isInGeneratedGroup(FileSetId set) const;
    // The first file set of that exact name.
    FileSetId fileSet(const QString &name) const;

    FileSetId fileSet(FileId file) const;
    QString path(FileId file) const;
    // The first fileType or userFileType; empty when there is none.
    QString fileType(FileId file) const;
    // Levels joined by "::". Our own, else the first group of the file set, else its name.
    QString category(FileId file) const;
    // Whether the category is our own.
    bool hasOwnCategory(FileId file) const;
    // A file of a set in the group generatedFiles without an entry of ours is generated, by
    // nobody, with the current version of the design. Nothing for a file that is not generated.
    std::optional<GeneratedInfo> generated(FileId file) const;
    // With an empty command when the file has none.
    FileBuildCommand buildCommand(FileId file) const;
    // Those with a command, in document order.
    QList<FileId> filesWithBuildCommand() const;

    // Appends an empty file set; its name is a single word (an xs:NMTOKEN where the generation
    // asks for one is not looked after).
    FileSetId addFileSet(const QString &name, QString *error = nullptr);

    // Appends a file to a set; its fileType comes from the suffix.
    FileId add(const QString &path, FileSetId set, QString *error = nullptr);
    // Removes this one entry. The file set stays, even when it is empty now.
    void remove(FileId file);

    bool setPath(FileId file, const QString &path, QString *error = nullptr);
    // Our own category; an empty text removes it, so that the standard one shows again.
    bool setCategory(FileId file, const QString &category, QString *error = nullptr);
    // No info removes our entry; refused for a file whose file set says that it is generated.
    bool setGenerated(FileId file, const std::optional<GeneratedInfo> &info,
                      QString *error = nullptr);

    // The standard's fileType for a file name by its suffix, "unknown" for an unknown one; the
    // generations differ in the words they know.
    QString fileTypeOf(const QString &path) const;

private:
    QString standardCategory(FileId file) const;

    ComponentTree &tree;
    // Groups are never changed here, and finding them takes a look at all files of a set.
    mutable QHash<FileSetId, QStringList> knownGroups;
};

} // namespace MorvalenCore
