#pragma once

#include "document/DesignField.h"
#include "document/DocumentBuilds.h"
#include "document/DocumentFiles.h"
#include "document/DocumentFolders.h"
#include "document/DocumentProperties.h"
#include "document/DocumentSharedValues.h"

#include <Qtilities/Status.h>

namespace MorvalenCore {

// What a design is written in: all that stands between a design and its file on disk. A design
// keeps everything here and asks anew; whether that is XML, and which, only the implementation
// knows. One per design, owned by it; not copied or moved, so that its parts may refer to it.
//
// A setter that refuses changes nothing. Setters refuse texts that the format cannot carry and
// items that were removed. Setting what is there already succeeds and is
// no edit. Queries about a removed item answer empty values. No rule about design items (duplicate
// paths or names, read-only designs) is looked after here.
class DesignDocument
{
public:
    struct Identity
    {
        QString vendor;
        QString library;
        QString name;
        QString version;
    };

    DesignDocument() = default;
    virtual ~DesignDocument() = default;
    DesignDocument(const DesignDocument &) = delete;
    DesignDocument &operator=(const DesignDocument &) = delete;

    // The file: absolute and clean.
    virtual QString path() const = 0;
    // Its folder, which relative paths in the document are of.
    virtual QString folder() const = 0;

    // Empty where the document has none.
    virtual QString text(DesignField field) const = 0;
    // An empty description, author, type or structure is removed; an empty name is refused.
    virtual Qtilities::Core::Status setText(DesignField field, const QString &text) = 0;

    // The flag in the document; says nothing about the file's permissions.
    virtual bool isReadOnly() const = 0;
    virtual void setReadOnly(bool readOnly) = 0;

    // The parts, owned by the document.
    virtual DocumentFiles &files() = 0;
    virtual const DocumentFiles &files() const = 0;
    virtual DocumentFolders &folders() = 0;
    virtual const DocumentFolders &folders() const = 0;
    virtual DocumentProperties &properties() = 0;
    virtual const DocumentProperties &properties() const = 0;
    virtual DocumentSharedValues &sharedValues() = 0;
    virtual const DocumentSharedValues &sharedValues() const = 0;
    virtual DocumentBuilds &builds() = 0;
    virtual const DocumentBuilds &builds() const = 0;

    // Counts what was removed from the document, and brings back what was removed from one count to
    // another, as it was. Refuses, with nothing changed, when its place is taken.
    virtual std::size_t removals() const = 0;
    virtual Qtilities::Core::Status restore(std::size_t from, std::size_t to) = 0;

    // Whether there are edits that save() has not written; true for a new document.
    virtual bool isModified() const = 0;

    // Writes the document to path(), atomically. Refuses, and leaves the file alone, when it has
    // changed on disk since it was read or last saved.
    virtual Qtilities::Core::Status save() = 0;

    // What has become of the file at path() since it was read or last saved.
    enum class FileState { Same, Changed, Missing };
    virtual FileState fileState() const = 0;

    // Saves in place of whatever is there.
    virtual Qtilities::Core::Status overwrite() = 0;

    // Writes a copy elsewhere, atomically, replacing what is there; path(), the edits and
    // isModified() stay as they are. Saves as save() does where the path is the document's own.
    virtual Qtilities::Core::Status saveCopy(const QString &path) = 0;
};

} // namespace MorvalenCore
