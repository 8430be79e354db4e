#pragma once

#include "component/ComponentBuilds.h"
#include "component/ComponentFiles.h"
#include "component/ComponentFolders.h"
#include "component/ComponentProperties.h"
#include "component/DesignField.h"
#include "component/Generation.h"
#include "component/SharedValues.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

namespace MorvalenCore {

class ComponentFile;

// An IP-XACT component file, read whole and edited in place. Every edit is kept beside the bytes
// that were read and takes effect on all later queries at once; bytes() and the save functions
// copy what nobody edited unchanged, so a document without edits is written byte for byte as it
// was read. One per design, owned by it; not copied or moved, so that its parts may refer to it.
//
// A setter answers false when it refuses, changes nothing then, and gives the reason in *error
// (where error is not null): one sentence without a final line feed. All setters refuse texts
// that XML cannot carry (a zero, other control characters, half a surrogate pair) and items that
// were removed. Setting what is there already succeeds and is no edit. Queries about a removed
// item answer empty values. No rule about design items (duplicate paths or names, read-only
// designs) is looked after here.
class ComponentDocument
{
public:
    struct Identity
    {
        QString vendor;
        QString library;
        QString name;
        QString version;
    };

    // What open() gives: either a document, perhaps with warnings (an empty vendor, library or
    // version, characters that the standard does not allow there), or an error. Warnings and
    // error read "FILE:LINE: reason".
    struct Opened
    {
        std::unique_ptr<ComponentDocument> document;
        QString error;
        QStringList warnings;
    };

    // Reads the component file at path; a relative path is of the process's folder. Refused are
    // what cannot be read or is not well-formed, other documents than components, unknown
    // generations, a missing name, document types, other encodings than UTF-8, Latin-1 and ASCII,
    // and what goes beyond the limits (256 MiB, and those of XmlLimits).
    static Opened open(const QString &path);

    // The same for bytes at hand; path is what messages call it and where save() would write.
    static Opened fromBytes(const QByteArray &bytes, const QString &path);

    // A new 1685-2014 component that save() will write to path, where no file may be by then.
    // Null, with the reason in *error, when XML cannot carry the identity or the name is empty.
    static std::unique_ptr<ComponentDocument> create(const Identity &identity, const QString &path,
                                                     QString *error = nullptr);

    ~ComponentDocument();
    ComponentDocument(const ComponentDocument &) = delete;
    ComponentDocument &operator=(const ComponentDocument &) = delete;

    // The component file: absolute and clean.
    QString path() const;
    // Its folder, which relative paths in the document are of.
    QString folder() const;
    Generation generation() const;
    // "1685-2014" and the like.
    QString generationName() const;

    // Empty where the document has none. The author is that of a foreign extension where the
    // component has one, else our own.
    QString text(DesignField field) const;
    // An empty description, author, type or structure removes the element or attribute; an empty
    // name is refused.
    bool setText(DesignField field, const QString &text, QString *error = nullptr);

    // The flag in the document; says nothing about the file's permissions.
    bool isReadOnly() const;
    void setReadOnly(bool readOnly);

    // The parts, owned by the document.
    ComponentFiles &files() { return *filesPart; }
    const ComponentFiles &files() const { return *filesPart; }
    ComponentFolders &folders() { return *foldersPart; }
    const ComponentFolders &folders() const { return *foldersPart; }
    ComponentProperties &properties() { return *propertiesPart; }
    const ComponentProperties &properties() const { return *propertiesPart; }
    SharedValues &sharedValues() { return *sharedPart; }
    const SharedValues &sharedValues() const { return *sharedPart; }
    ComponentBuilds &builds() { return *buildsPart; }
    const ComponentBuilds &builds() const { return *buildsPart; }

    // Whether there are edits that save() has not written; true for a new document.
    bool isModified() const;

    // The whole document with all edits applied. Linear in its size and the number of edits.
    QByteArray bytes() const;

    // Writes the document to path(), atomically. Refuses, and leaves the file alone, when it has
    // changed on disk since it was read or last saved.
    bool save(QString *error = nullptr);

    // Writes a copy elsewhere, atomically, replacing what is there; path(), the edits and
    // isModified() stay as they are. Saves as save() does where the path is the document's own.
    bool saveCopy(const QString &path, QString *error = nullptr);

private:
    class Private;
    explicit ComponentDocument(std::unique_ptr<Private> data);
    static Opened read(const ComponentFile &file, const QByteArray &bytes);

    std::unique_ptr<Private> d;
    std::unique_ptr<ComponentFiles> filesPart;
    std::unique_ptr<ComponentFolders> foldersPart;
    std::unique_ptr<ComponentProperties> propertiesPart;
    std::unique_ptr<SharedValues> sharedPart;
    std::unique_ptr<ComponentBuilds> buildsPart;
};

} // namespace MorvalenCore
