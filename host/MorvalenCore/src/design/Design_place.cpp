// The design on disk: opening, saving, the working folder.

#include "design/Design.h"
#include "log/hostlog.h"
#include "structures/structures.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

const QString componentFile = u"component.xml"_s;

} // namespace

std::unique_ptr<Design> Design::create(const QString &type, const QString &name, QString *error)
{
    std::unique_ptr<ComponentDocument> document =
        ComponentDocument::create({QString(), QString(), name, u"1.0"_s}, componentFile, error);
    if (!document || !document->setText(DesignField::Type, type, error))
        return nullptr;
    return std::unique_ptr<Design>(new Design(std::move(document)));
}

Design::Opened Design::open(const QString &fileName)
{
    ComponentDocument::Opened opened = ComponentDocument::open(fileName);
    if (!opened.document)
        return {nullptr, opened.error, opened.warnings};
    std::unique_ptr<Design> design(new Design(std::move(opened.document)));
    design->load();
    return {std::move(design), QString(), opened.warnings};
}

void Design::load()
{
    state.setPlaced(true);
    state.setFileReadOnly(!QFileInfo(componentFileName()).isWritable());
    files.load();
    folderItems.load();
    propertyItems.load();
    builds.load();
}

void Design::close()
{
    registry = nullptr;
    state.changed = nullptr;
    builds.clear();
    propertyItems.clear();
    folderItems.clear();
    files.clear();
    state.setPlaced(false);
    // What was read is not kept in memory; a design that is closed may wait long for its end.
    if (std::unique_ptr<ComponentDocument> identity = ComponentDocument::create(
            {vendor(), library(), name(), version(u"."_s)}, componentFile))
        state.setDocument(std::move(identity));
}

void Design::setReadOnly(bool readOnly)
{
    if (state.isPlaced())
        state.setFileReadOnly(!QFileInfo(componentFileName()).isWritable());
    if (state.document().isReadOnly() != readOnly) {
        state.document().setReadOnly(readOnly);
        announceChange();
    }
    if (!readOnly && isReadOnly())
        logWarning(u"The design \"%1\" stays read-only because \"%2\" cannot be written"_s.arg(
            name(), componentFileName()));
}

QString Design::workingFolderPath() const { return state.folder(); }

QString Design::componentFileName() const
{
    return state.isPlaced() ? state.document().path() : QString();
}

bool Design::saveToComponentFile(QString *error)
{
    if (!state.isPlaced()) {
        if (error)
            *error = u"The design \"%1\" has no working folder yet"_s.arg(name());
        return false;
    }
    const bool wasModified = isModified();
    if (!state.document().save(error))
        return false;
    if (wasModified)
        announceChange();
    return true;
}

bool Design::saveCopy(const QString &fileName, QString *error)
{
    return state.document().saveCopy(fileName, error);
}

bool Design::assignPhysicalWorkingFolderPath(const QString &path)
{
    QString error;
    const QString folder = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    bool assigned = false;
    if (path.isEmpty())
        error = u"The path of a working folder cannot be empty"_s;
    else if (!state.isPlaced())
        assigned = placeIn(folder, &error);
    else if (folder == state.folder())
        assigned = restoreFolders(&error);
    else
        error = u"The design \"%1\" has the working folder \"%2\" already"_s.arg(name(),
                                                                                 state.folder());
    if (!assigned)
        logError(error);
    return assigned;
}

bool Design::placeIn(const QString &path, QString *error)
{
    const QStringList folders = structureFolders();
    if (!workingFolder.make(path, folders, error))
        return false;
    std::unique_ptr<ComponentDocument> document =
        placedDocument(path + u'/' + componentFile, error);
    for (const QString &folder : folders) {
        if (document
            && (!document->files().addFileSet(folder, error)
                || !document->folders().add(folder, QString(), error)))
            document.reset();
    }
    if (!document || !document->save(error)) {
        workingFolder.takeBack();
        return false;
    }
    workingFolder.addFile(componentFile);
    state.setDocument(std::move(document));
    load();
    announceChange();
    return true;
}

std::unique_ptr<ComponentDocument> Design::placedDocument(const QString &path, QString *error) const
{
    std::unique_ptr<ComponentDocument> document =
        ComponentDocument::create({vendor(), library(), name(), version(u"."_s)}, path, error);
    for (const DesignField field : {DesignField::Description, DesignField::Author,
                                    DesignField::Type, DesignField::Structure}) {
        if (document && !document->setText(field, state.document().text(field), error))
            document.reset();
    }
    if (document)
        document->setReadOnly(state.document().isReadOnly());
    return document;
}

bool Design::restoreFolders(QString *error) const
{
    QStringList folders {state.folder()};
    if (findDesignStructure(structureId())) {
        for (const QString &name : structureFolders())
            folders.append(state.folder() + u'/' + name);
    }
    for (const QString &folder : folders) {
        if (!QDir().mkpath(folder)) {
            *error = u"The folder \"%1\" cannot be made"_s.arg(folder);
            return false;
        }
    }
    return true;
}

// A new design without a structure gets the simplest one's.
QStringList Design::structureFolders() const
{
    const DesignStructure *structure = findDesignStructure(structureId());
    return structure ? structure->fileSets : designStructures().first().fileSets;
}

} // namespace MorvalenCore
