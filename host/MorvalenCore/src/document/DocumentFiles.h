#pragma once

#include "document/ItemId.h"

#include <Qtilities/Status.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace MorvalenCore {

// That a file is the product of a build or a generator.
struct GeneratedInfo
{
    // Who made it; may be empty.
    QString by;
    // The version of the design that made it; empty where the design had none.
    QString version;

    bool operator==(const GeneratedInfo &) const = default;
};

// A build command that a file brings along; run as COMMAND FLAGS FILE in the document's folder.
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

// File sets and files of a document. One file on disk may have several entries, each with a FileId
// of its own; the same path is never merged here. Paths are texts as the document has them:
// relative to the document's folder, environment variables and Windows spellings kept.
class DocumentFiles
{
public:
    virtual ~DocumentFiles() = default;

    // All in document order.
    virtual QList<FileSetId> fileSets() const = 0;
    virtual QList<FileId> files() const = 0;
    virtual QList<FileId> files(FileSetId set) const = 0;

    virtual QString name(FileSetId set) const = 0;
    virtual QStringList groups(FileSetId set) const = 0;
    // Whether all files of the set count as generated.
    virtual bool isInGeneratedGroup(FileSetId set) const = 0;
    // The first file set of that exact name.
    virtual FileSetId fileSet(const QString &name) const = 0;

    virtual FileSetId fileSet(FileId file) const = 0;
    virtual QString path(FileId file) const = 0;
    // Empty when there is none.
    virtual QString fileType(FileId file) const = 0;
    // Levels joined by "::"; where nobody set one, what the file set says.
    virtual QString category(FileId file) const = 0;
    // Nothing for a file that is not generated.
    virtual std::optional<GeneratedInfo> generated(FileId file) const = 0;
    // With an empty command when the file has none.
    virtual FileBuildCommand buildCommand(FileId file) const = 0;
    // Those with a command, in document order.
    virtual QList<FileId> filesWithBuildCommand() const = 0;

    // Whether add() and setPath() take the path.
    virtual Qtilities::Core::Status checkPath(const QString &path) const = 0;

    // Appends an empty file set.
    virtual Qtilities::Core::Result<FileSetId> addFileSet(const QString &name) = 0;

    // Removes a file set that has no file.
    virtual void removeEmpty(FileSetId set) = 0;

    // Appends a file to a set; its type comes from the suffix.
    virtual Qtilities::Core::Result<FileId> add(const QString &path, FileSetId set) = 0;
    // Removes this one entry. The file set stays, even when it is empty now.
    virtual void remove(FileId file) = 0;

    // Makes this entry the last one of another set, with all that is said of it; it has another id
    // then.
    virtual Qtilities::Core::Result<FileId> move(FileId file, FileSetId set) = 0;

    virtual Qtilities::Core::Status setPath(FileId file, const QString &path) = 0;
    // An empty text removes it, so that what the file set says shows again.
    virtual Qtilities::Core::Status setCategory(FileId file, const QString &category) = 0;
    // No info removes the entry; refused for a file whose file set says that it is generated.
    virtual Qtilities::Core::Status setGenerated(FileId file,
                                                 const std::optional<GeneratedInfo> &info) = 0;

    // The format's word for the type of a file of that name, "unknown" for an unknown suffix.
    virtual QString fileTypeOf(const QString &path) const = 0;
};

} // namespace MorvalenCore
