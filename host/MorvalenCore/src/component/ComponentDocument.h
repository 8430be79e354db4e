#pragma once

#include "component/ComponentBuilds.h"
#include "component/ComponentFiles.h"
#include "component/ComponentFolders.h"
#include "component/ComponentProperties.h"
#include "component/Generation.h"
#include "component/SharedValues.h"
#include "document/DesignDocument.h"

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
// Setters refuse texts that XML cannot carry (a zero, other control characters, half a surrogate
// pair).
class ComponentDocument final : public DesignDocument
{
public:
    // Reads the component file at path; a relative path is of the process's folder. Refused are
    // what cannot be read or is not well-formed, other documents than components, unknown
    // generations, a missing name, document types, other encodings than UTF-8, Latin-1 and ASCII,
    // and what goes beyond the limits (256 MiB, and those of XmlLimits). An empty vendor, library
    // or version, and characters that the standard does not allow there, are remarked on. Remarks
    // and the sentence of a failure read "FILE:LINE: reason".
    static Qtilities::Core::Result<std::unique_ptr<ComponentDocument>> open(const QString &path);

    // The same for bytes at hand; path is what messages call it and where save() would write.
    static Qtilities::Core::Result<std::unique_ptr<ComponentDocument>>
    fromBytes(const QByteArray &bytes, const QString &path);

    // A new 1685-2014 component that save() will write to path, where no file may be by then.
    // Fails when XML cannot carry the identity or the name is empty.
    static Qtilities::Core::Result<std::unique_ptr<ComponentDocument>>
    create(const Identity &identity, const QString &path);

    ~ComponentDocument() override;

    // The component file: absolute and clean.
    QString path() const override;
    // Its folder, which relative paths in the document are of.
    QString folder() const override;
    Generation generation() const;
    // "1685-2014" and the like.
    QString generationName() const;

    // Empty where the document has none. The author is that of a foreign extension where the
    // component has one, else our own.
    QString text(DesignField field) const override;
    // An empty description, author, type or structure removes the element or attribute; an empty
    // name is refused.
    Qtilities::Core::Status setText(DesignField field, const QString &text) override;

    // The flag in the document; says nothing about the file's permissions.
    bool isReadOnly() const override;
    void setReadOnly(bool readOnly) override;

    // The parts, owned by the document.
    ComponentFiles &files() override { return *filesPart; }
    const ComponentFiles &files() const override { return *filesPart; }
    ComponentFolders &folders() override { return *foldersPart; }
    const ComponentFolders &folders() const override { return *foldersPart; }
    ComponentProperties &properties() override { return *propertiesPart; }
    const ComponentProperties &properties() const override { return *propertiesPart; }
    SharedValues &sharedValues() override { return *sharedPart; }
    const SharedValues &sharedValues() const override { return *sharedPart; }
    ComponentBuilds &builds() override { return *buildsPart; }
    const ComponentBuilds &builds() const override { return *buildsPart; }

    // Whether there are edits that save() has not written; true for a new document.
    std::size_t removals() const override;
    Qtilities::Core::Status restore(std::size_t from, std::size_t to) override;
    bool isModified() const override;

    // The whole document with all edits applied. Linear in its size and the number of edits.
    QByteArray bytes() const;

    // Writes the document to path(), atomically. Refuses, and leaves the file alone, when it has
    // changed on disk since it was read or last saved.
    Qtilities::Core::Status save() override;
    FileState fileState() const override;
    Qtilities::Core::Status overwrite() override;

    // Writes a copy elsewhere, atomically, replacing what is there; path(), the edits and
    // isModified() stay as they are. Saves as save() does where the path is the document's own.
    Qtilities::Core::Status saveCopy(const QString &path) override;

private:
    Qtilities::Core::Status saved(const Qtilities::Core::Status &written);

    class Private;
    explicit ComponentDocument(std::unique_ptr<Private> data);
    static Qtilities::Core::Result<std::unique_ptr<ComponentDocument>>
    read(const ComponentFile &file, const QByteArray &bytes);

    std::unique_ptr<Private> d;
    std::unique_ptr<ComponentFiles> filesPart;
    std::unique_ptr<ComponentFolders> foldersPart;
    std::unique_ptr<ComponentProperties> propertiesPart;
    std::unique_ptr<SharedValues> sharedPart;
    std::unique_ptr<ComponentBuilds> buildsPart;
};

} // namespace MorvalenCore
