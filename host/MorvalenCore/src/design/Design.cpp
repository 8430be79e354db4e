#include "design/Design.h"

#include "design/FileRenaming.h"
#include "design/RememberedSelection.h"
#include "log/hostlog.h"
#include "structures/structures.h"

#include <Qtilities/paths.h>

#include <QDir>
#include <QFileInfo>
#include <QStringBuilder>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

using Qtilities::Core::canonicalPath;
using Qtilities::Core::fileNameOf;
using Qtilities::Core::isLink;
using Qtilities::Core::isWritable;
using Qtilities::Core::pathIn;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace {

// A document that holds nothing else. What has been in a document can be in another.
std::unique_ptr<DesignDocument> documentOf(const DocumentFormat &format,
                                           const DesignDocument::Identity &identity)
{
    Result<std::unique_ptr<DesignDocument>> document = format.create(identity, format.fileName());
    if (!document.isOk())
        document = format.create({QString(), QString(), u"closed"_s, QString()}, format.fileName());
    return std::move(document).value();
}

} // namespace

Result<std::unique_ptr<Design>> Design::create(const DocumentFormat &format, const QString &type,
                                               const QString &name)
{
    Result<std::unique_ptr<DesignDocument>> document =
        format.create({QString(), QString(), name, u"1.0"_s}, format.fileName());
    if (!document.isOk())
        return document.status();
    if (const Status typed = document.value()->setText(DesignField::Type, type); !typed.isOk())
        return typed;
    return std::unique_ptr<Design>(new Design(format, std::move(document).value()));
}

Result<std::unique_ptr<Design>> Design::open(const DocumentFormat &format, const QString &fileName)
{
    Result<std::unique_ptr<DesignDocument>> document = format.open(fileName);
    if (!document.isOk())
        return document.status();
    std::unique_ptr<Design> design(new Design(format, std::move(document.value())));
    design->load();
    return {std::move(design), document.status()};
}

Design::Design(const DocumentFormat &documentFormat, std::unique_ptr<DesignDocument> document)
    : format(documentFormat),
      changes([this] {
          builds.saveRecords();
          if (registry)
              registry->designChanged(this);
      }),
      state(std::move(document)),
      files(state),
      folderItems(state),
      propertyItems(state),
      builds(state, files),
      place(documentFormat, state)
{
    state.changed = [this] { changes.changed(); };
    setObjectName(state.name());
}

Design::~Design() = default;

void Design::attachTo(DesignRegistry *openDesigns)
{
    registry = openDesigns;
    place.keep();
}

void Design::load()
{
    state.setPlaced(true);
    state.setFileReadOnly(!isWritable(componentFileName()));
    files.load();
    folderItems.load();
    propertyItems.load();
    builds.load();
}

QString Design::componentFileOnDisk() const
{
    // The links on the way there have been followed already.
    const QString folder = state.folderOnDisk();
    const QString file = componentFileName();
    return folder.isEmpty() || isLink(file) ? canonicalPath(file)
                                            : pathIn(folder, fileNameOf(file));
}

void Design::clearItems()
{
    builds.clear();
    propertyItems.clear();
    folderItems.clear();
    files.clear();
}

void Design::close()
{
    registry = nullptr;
    state.changed = nullptr;
    clearItems();
    state.setPlaced(false);
    // What was read is not kept in memory; a design that is closed may wait long for its end, and
    // is hardly ever asked who it was.
    const DesignDocument::Identity identity {vendor(), library(), name(), version(u"."_s)};
    state.setDocument([this, identity] { return documentOf(format, identity); });
}

// The parts of a version are joined by dots in the document.
QString Design::version(const QString &separator) const
{
    QString version = state.document().text(DesignField::Version);
    return separator == u"."_s ? version : version.replace(u'.', separator);
}

QString Design::id(const QString &separator) const
{
    return vendor() % separator % library() % separator % name() % separator % version(separator);
}

Status Design::setVersion(const QString &version)
{
    return version.isEmpty() ? Status::invalidArgument(u"The version of a design cannot be empty"_s)
                             : setIdentity(DesignField::Version, version);
}

Status Design::setIdentity(DesignField field, const QString &text)
{
    const QString oldText = state.document().text(field);
    if (text == oldText)
        return {};
    const QString oldId = id(u"."_s);
    return state.change([&] {
        const Status written = state.document().setText(field, text);
        if (!written.isOk())
            return written;
        const QString newId = id(u"."_s);
        Status refused = registry && newId != oldId ? registry->checkId(newId) : Status();
        if (!refused.isOk()) {
            refused.addStep(state.document().setText(field, oldText));
            return refused;
        }
        setObjectName(name());
        if (registry)
            registry->designIdChanged(this, oldId);
        return Status();
    });
}

Status Design::setText(DesignField field, const QString &text)
{
    if (text == state.document().text(field))
        return {};
    return state.change([&] { return state.document().setText(field, text); });
}

QString Design::designType() const
{
    const QString type = state.document().text(DesignField::Type);
    return type.isEmpty() ? designTypeList().first().name : type;
}

Status Design::trySetStructureId(const QString &id)
{
    if (!id.isEmpty() && !findDesignStructure(id))
        return Status::notFound(u"There is no design structure \"%1\""_s.arg(id));
    return setText(DesignField::Structure, id);
}

Status Design::trySetReadOnly(bool readOnly)
{
    if (state.isPlaced())
        state.setFileReadOnly(!isWritable(componentFileName()));
    if (state.document().isReadOnly() != readOnly) {
        state.document().setReadOnly(readOnly);
        changes.changed();
    }
    Status status;
    if (!readOnly && isReadOnly())
        status.addWarning(
            u"The design \"%1\" stays read-only because \"%2\" cannot be written"_s.arg(
                name(), componentFileName()));
    return status;
}

void Design::setBusy(bool isBusy, const QString &reason, bool notify)
{
    if (busy == isBusy)
        return;
    busy = isBusy;
    if (isBusy && !reason.isEmpty())
        logInfo(u"The design \"%1\" is busy: %2"_s.arg(name(), reason));
    if (notify)
        changes.changed();
}

Status Design::tryAssignPhysicalWorkingFolderPath(const QString &path)
{
    const QString folder = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    Status status;
    if (path.isEmpty()) {
        status = Status::invalidArgument(u"The path of a working folder cannot be empty"_s);
    } else if (!state.isPlaced()) {
        status = place.settleIn(folder);
        if (status.isOk()) {
            load();
            changes.changed();
        }
    } else if (folder == state.folder()) {
        status = place.restoreFolders();
    } else {
        status =
            Status::alreadyExists(u"The design \"%1\" has the working folder \"%2\" already"_s.arg(
                name(), state.folder()));
    }
    return status;
}

Status Design::trySaveToComponentFile()
{
    if (!state.isPlaced())
        return Status::notFound(u"The design \"%1\" has no working folder yet"_s.arg(name()));
    const bool wasModified = isModified();
    const Status saved = state.document().save();
    if (saved.isOk() && wasModified)
        changes.changed();
    return saved;
}

Interfaces::IDesign::FileState Design::componentFileState() const
{
    if (!state.isPlaced())
        return FileState::Same;
    switch (state.document().fileState()) {
    case DesignDocument::FileState::Same:
        return FileState::Same;
    case DesignDocument::FileState::Changed:
        return FileState::Changed;
    default:
        return FileState::Missing;
    }
}

Status Design::overwriteComponentFile()
{
    if (!state.isPlaced())
        return Status::notFound(u"The design \"%1\" has no component file yet"_s.arg(name()));
    const Status saved = state.document().overwrite();
    if (saved.isOk())
        changes.changed();
    return saved;
}

Status Design::checkReload(const DesignDocument &document) const
{
    for (const QString &build : builds.names()) {
        if (builds.find(build)->runState() == BuildConfiguration::Running)
            return Status::busy(
                u"The build \"%1\" of design \"%2\" is running"_s.arg(build, name()));
    }
    QStringList parts;
    for (const DesignField field :
         {DesignField::Vendor, DesignField::Library, DesignField::Name, DesignField::Version})
        parts.append(document.text(field));
    const QString newId = parts.join(u'.');
    return registry && newId != id(u"."_s) ? registry->checkId(newId) : Status();
}

Status Design::reloadComponentFile()
{
    if (!state.isPlaced())
        return Status::notFound(u"The design \"%1\" has no component file yet"_s.arg(name()));
    Result<std::unique_ptr<DesignDocument>> opened = format.open(componentFileName());
    if (!opened.isOk())
        return opened.status();
    if (const Status status = checkReload(*opened.value()); !status.isOk())
        return status;
    const QString oldId = id(u"."_s);
    const RememberedSelection selection(files, folderItems, propertyItems);
    clearItems();
    state.setDocument(std::move(opened.value()));
    load();
    selection.restore();
    setObjectName(name());
    if (registry && id(u"."_s) != oldId)
        registry->designIdChanged(this, oldId);
    changes.changed();
    return opened.status();
}

Status Design::saveCopy(const QString &fileName) { return state.document().saveCopy(fileName); }

Result<DesignFile *> Design::tryAddFile(const QString &actualPath, const QString &node, bool notify)
{
    if (notify)
        return files.add(actualPath, node);
    startProcessingCycle();
    Result<DesignFile *> file = files.add(actualPath, node);
    endProcessingCycle(false);
    return file;
}

Status Design::tryRenameFile(const QString &path, const QString &newPath)
{
    return FileRenaming(*this, path, newPath).run();
}

Status Design::tryMoveFile(const QString &path, const QString &node)
{
    return node.isEmpty() ? Status::invalidArgument(u"The name of a file set cannot be empty"_s)
                          : files.moveTo(path, node);
}

void Design::setActiveFiles(const QList<QPointer<DesignFile>> &active)
{
    files.active.set(active);
    changes.changed();
}

void Design::setActiveFolders(const QList<QPointer<DesignFolder>> &active)
{
    folderItems.active.set(active);
    changes.changed();
}

void Design::setActiveProperties(const QList<QPointer<DesignProperty>> &active)
{
    propertyItems.active.set(active);
    changes.changed();
}

} // namespace MorvalenCore
