#include "component/ComponentDocument.h"

#include "component/ComponentFile.h"
#include "component/ComponentReader.h"
#include "component/ComponentTree.h"
#include "component/identity.h"
#include "component/ipxact.h"

#include <Qtilities/atomicfile.h>
#include <Qtilities/paths.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

class ComponentDocument::Private
{
public:
    Private(const ComponentFile &componentFile, const QByteArray &bytes, ComponentReader &reader)
        : file(componentFile),
          folder(Qtilities::Core::folderOf(file.path())),
          tree(bytes, reader.takeIndex(), reader.generation())
    {
    }

    ComponentFile file;
    const QString folder;
    ComponentTree tree;
    bool isNew = false;
    std::uint64_t savedRevision = 0;
    // What is asked for most, as it is in a revision.
    std::array<std::optional<QString>, 4> identity;
    std::uint64_t identityRevision = 0;
};

namespace {

QString absolutePath(const QString &path)
{
    const bool isWhole = path.isEmpty() || path.startsWith(u'/');
    return QDir::cleanPath(isWhole ? path : QDir::currentPath() + u'/' + path);
}

// Whether a text stands in an element as it is.
bool isPlain(const QString &text)
{
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c < u'\x7f' && (c.isLetterOrNumber() || c == u'_' || c == u'-' || c == u'.');
    });
}

QByteArray newDocument(const DesignDocument::Identity &identity)
{
    QByteArray bytes = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ipxact:component "
                       "xmlns:ipxact=\""
        + Ipxact::namespaceOf(Generation::Ieee2014).toByteArray() + "\">\n";
    for (const auto &[name, text] :
         {std::pair("vendor", identity.vendor), std::pair("library", identity.library),
          std::pair("name", identity.name), std::pair("version", identity.version)}) {
        const QByteArray element = QByteArray("ipxact:") + name;
        bytes += "  <" + element
            + (isPlain(text) ? '>' + text.toLatin1() + "</" + element + ">\n" : "/>\n");
    }
    return bytes + "</ipxact:component>\n";
}

} // namespace

ComponentDocument::ComponentDocument(std::unique_ptr<Private> data)
    : d(std::move(data)),
      filesPart(std::make_unique<ComponentFiles>(d->tree)),
      foldersPart(std::make_unique<ComponentFolders>(d->tree)),
      propertiesPart(std::make_unique<ComponentProperties>(d->tree)),
      sharedPart(std::make_unique<SharedValues>(d->tree)),
      buildsPart(std::make_unique<ComponentBuilds>(d->tree))
{
}

ComponentDocument::~ComponentDocument() = default;

Result<std::unique_ptr<ComponentDocument>> ComponentDocument::open(const QString &path)
{
    ComponentFile file(absolutePath(path));
    const Result<QByteArray> bytes = file.read();
    if (!bytes.isOk()) {
        const Status &status = bytes.status();
        return status.withText(u"%1:1: %2"_s.arg(file.path(), status.text()));
    }
    return read(file, bytes.value());
}

Result<std::unique_ptr<ComponentDocument>> ComponentDocument::fromBytes(const QByteArray &bytes,
                                                                        const QString &path)
{
    return read(ComponentFile(absolutePath(path)), bytes);
}

Result<std::unique_ptr<ComponentDocument>> ComponentDocument::read(const ComponentFile &file,
                                                                   const QByteArray &bytes)
{
    ComponentReader reader(bytes, file.path());
    if (!reader.status().isOk())
        return reader.status();
    const Status readable = reader.status();
    auto data = std::make_unique<Private>(file, bytes, reader);
    const Status status = IdentityCheck::check(data->tree, file.path()).after(readable);
    if (!status.isOk())
        return status;
    return {std::unique_ptr<ComponentDocument>(new ComponentDocument(std::move(data))), status};
}

Result<std::unique_ptr<ComponentDocument>> ComponentDocument::create(const Identity &identity,
                                                                     const QString &path)
{
    const QByteArray bytes = newDocument(identity);
    const ComponentFile file(absolutePath(path));
    ComponentReader reader(bytes, file.path());
    std::unique_ptr<ComponentDocument> document(
        new ComponentDocument(std::make_unique<Private>(file, bytes, reader)));
    document->d->isNew = true;
    for (const auto &[field, text] : {std::pair(DesignField::Vendor, identity.vendor),
                                      std::pair(DesignField::Library, identity.library),
                                      std::pair(DesignField::Name, identity.name),
                                      std::pair(DesignField::Version, identity.version)}) {
        const Status set = isPlain(text) ? Status() : document->setText(field, text);
        if (!set.isOk())
            return set;
    }
    return document;
}

QString ComponentDocument::path() const { return d->file.path(); }

QString ComponentDocument::folder() const { return d->folder; }

Generation ComponentDocument::generation() const { return d->tree.generation(); }

QString ComponentDocument::generationName() const { return Ipxact::nameOf(generation()); }

QString ComponentDocument::text(DesignField field) const
{
    if (field > DesignField::Version)
        return IdentityFields::text(d->tree, field);
    if (std::exchange(d->identityRevision, d->tree.xml.revision()) != d->tree.xml.revision())
        d->identity = {};
    std::optional<QString> &known = d->identity[size_t(field)];
    if (!known)
        known = IdentityFields::text(d->tree, field);
    return *known;
}

Status ComponentDocument::setText(DesignField field, const QString &text)
{
    return IdentityFields::setText(d->tree, field, text);
}

bool ComponentDocument::isReadOnly() const
{
    return d->tree.attribute(d->tree.design(), "readOnly") == "true"_L1;
}

void ComponentDocument::setReadOnly(bool readOnly)
{
    if (readOnly != isReadOnly())
        IdentityFields::setDesignAttribute(d->tree, "readOnly", readOnly ? u"true"_s : QString());
}

std::size_t ComponentDocument::removals() const { return d->tree.xml.removals(); }

Status ComponentDocument::restore(std::size_t from, std::size_t to)
{
    return d->tree.restore(from, to)
        ? Status()
        : Status::conflict(u"Something else stands in the component file where it was."_s);
}

bool ComponentDocument::isModified() const
{
    return d->isNew || d->tree.xml.revision() != d->savedRevision;
}

QByteArray ComponentDocument::bytes() const { return d->tree.xml.bytes(); }

DesignDocument::FileState ComponentDocument::fileState() const
{
    using Disk = Qtilities::Core::KnownFile::Disk;
    const Disk found = d->file.look();
    if (found == Disk::Missing)
        return d->isNew ? FileState::Same : FileState::Missing;
    return found == Disk::Changed ? FileState::Changed : FileState::Same;
}

Status ComponentDocument::save() { return saved(d->file.write(bytes())); }

Status ComponentDocument::overwrite() { return saved(d->file.overwrite(bytes())); }

Status ComponentDocument::saved(const Status &written)
{
    if (!written.isOk())
        return written;
    d->isNew = false;
    d->savedRevision = d->tree.xml.revision();
    return written;
}

Status ComponentDocument::saveCopy(const QString &path)
{
    if (absolutePath(path) == this->path()
        || (QFileInfo::exists(path)
            && QFileInfo(path).canonicalFilePath() == QFileInfo(this->path()).canonicalFilePath()))
        return save();
    return Qtilities::Core::writeFileAtomically(absolutePath(path), bytes());
}

} // namespace MorvalenCore
