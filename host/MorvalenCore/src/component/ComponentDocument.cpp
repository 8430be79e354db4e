#include "component/ComponentDocument.h"

#include "component/ComponentFile.h"
#include "component/ComponentReader.h"
#include "component/ComponentTree.h"
#include "component/identity.h"
#include "component/ipxact.h"

#include <Qtilities/atomicfile.h>

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

class ComponentDocument::Private
{
public:
    Private(const ComponentFile &componentFile, const QByteArray &bytes, ComponentReader &reader)
        : file(componentFile),
          tree(bytes, reader.takeIndex(), reader.generation())
    {
    }

    ComponentFile file;
    ComponentTree tree;
    bool isNew = false;
    std::uint64_t savedRevision = 0;
};

namespace {

QString absolutePath(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

constexpr char newDocument[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<ipxact:component xmlns:ipxact=\"%1\">\n"
                               "  <ipxact:vendor/>\n"
                               "  <ipxact:library/>\n"
                               "  <ipxact:name/>\n"
                               "  <ipxact:version/>\n"
                               "</ipxact:component>\n";

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

ComponentDocument::Opened ComponentDocument::open(const QString &path)
{
    Opened opened;
    ComponentFile file(absolutePath(path));
    QByteArray bytes;
    QString reason;
    if (!file.read(bytes, reason)) {
        opened.error = u"%1:1: %2"_s.arg(file.path(), reason);
        return opened;
    }
    return read(file, bytes);
}

ComponentDocument::Opened ComponentDocument::fromBytes(const QByteArray &bytes, const QString &path)
{
    return read(ComponentFile(absolutePath(path)), bytes);
}

ComponentDocument::Opened ComponentDocument::read(const ComponentFile &file,
                                                  const QByteArray &bytes)
{
    Opened opened;
    ComponentReader reader(bytes, file.path());
    opened.error = reader.error();
    if (!opened.error.isEmpty())
        return opened;
    auto data = std::make_unique<Private>(file, bytes, reader);
    IdentityFindings findings = IdentityCheck::check(data->tree, file.path());
    opened.error = findings.error;
    opened.warnings = findings.warnings;
    if (opened.error.isEmpty())
        opened.document.reset(new ComponentDocument(std::move(data)));
    return opened;
}

std::unique_ptr<ComponentDocument> ComponentDocument::create(const Identity &identity,
                                                             const QString &path, QString *error)
{
    const QByteArray bytes =
        QByteArray(newDocument).replace("%1", Ipxact::namespaceOf(Generation::Ieee2014));
    const ComponentFile file(absolutePath(path));
    ComponentReader reader(bytes, file.path());
    std::unique_ptr<ComponentDocument> document(
        new ComponentDocument(std::make_unique<Private>(file, bytes, reader)));
    document->d->isNew = true;
    const bool named = document->setText(DesignField::Vendor, identity.vendor, error)
        && document->setText(DesignField::Library, identity.library, error)
        && document->setText(DesignField::Name, identity.name, error)
        && document->setText(DesignField::Version, identity.version, error);
    return named ? std::move(document) : nullptr;
}

QString ComponentDocument::path() const { return d->file.path(); }

QString ComponentDocument::folder() const { return QFileInfo(path()).path(); }

Generation ComponentDocument::generation() const { return d->tree.generation(); }

QString ComponentDocument::generationName() const { return Ipxact::nameOf(generation()); }

QString ComponentDocument::text(DesignField field) const
{
    return IdentityFields::text(d->tree, field);
}

bool ComponentDocument::setText(DesignField field, const QString &text, QString *error)
{
    return IdentityFields::setText(d->tree, field, text, error);
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

bool ComponentDocument::isModified() const
{
    return d->isNew || d->tree.xml.revision() != d->savedRevision;
}

QByteArray ComponentDocument::bytes() const { return d->tree.xml.bytes(); }

bool ComponentDocument::save(QString *error)
{
    if (!d->file.write(bytes(), error))
        return false;
    d->isNew = false;
    d->savedRevision = d->tree.xml.revision();
    return true;
}

bool ComponentDocument::saveCopy(const QString &path, QString *error)
{
    if (absolutePath(path) == this->path()
        || (QFileInfo::exists(path)
            && QFileInfo(path).canonicalFilePath() == QFileInfo(this->path()).canonicalFilePath()))
        return save(error);
    return Qtilities::Core::writeFileAtomically(absolutePath(path), bytes(), error);
}

} // namespace MorvalenCore
