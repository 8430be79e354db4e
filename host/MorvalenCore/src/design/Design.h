#pragma once

#include "configurations/DesignBuilds.h"
#include "design/DesignPlace.h"
#include "design/DesignRegistry.h"
#include "design/ProcessingCycles.h"
#include "document/DocumentFormat.h"
#include "items/DesignFiles.h"
#include "items/DesignFolders.h"
#include "items/DesignProperties.h"
#include "items/DesignState.h"

#include <MorvalenCore/IDesign.h>
#include <MorvalenCore/IDesignEditing.h>

#include <Qtilities/Status.h>

#include <memory>

namespace MorvalenCore {

// A design that is kept in a document. A new one has no file until it gets a working folder.
// Belongs to the design manager once it is attached to it.
//
// What it consists of are objects of their own, which it joins: its state (the document), its
// items, its builds, its place on disk, and the cycles in which it tells of changes.
class Design final : public QObject, public Interfaces::IDesign, public Interfaces::IDesignEditing
{
    Q_OBJECT
    Q_INTERFACES(MorvalenCore::Interfaces::IDesign MorvalenCore::Interfaces::IDesignEditing)

public:
    using Status = Qtilities::Core::Status;

    // A new design without a working folder. Fails for a name that the format cannot carry.
    static Qtilities::Core::Result<std::unique_ptr<Design>>
    create(const DocumentFormat &format, const QString &type, const QString &name);
    // The design of a file, perhaps with warnings; a relative path is of the process's folder.
    // Warnings and the sentence of a failure read "FILE:LINE: reason".
    static Qtilities::Core::Result<std::unique_ptr<Design>> open(const DocumentFormat &format,
                                                                 const QString &fileName);

    // A design that was never attached takes back the working folder that was made for it.
    ~Design() override;

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

    // Called by the design manager. A closed design keeps its identity, but has no items any more
    // and is not saved.
    void attachTo(DesignRegistry *openDesigns);
    void close();

    // Writes a copy; the design stays where it is.
    Qtilities::Core::Status saveCopy(const QString &fileName);

    // Its component file, all links followed; empty when it has none.
    QString componentFileOnDisk() const;

    // The parts of the design beyond what every design has.
    DesignFiles &fileItems() { return files; }

    QString name() const override { return state.name(); }
    QString vendor() const override { return state.document().text(DesignField::Vendor); }
    QString library() const override { return state.document().text(DesignField::Library); }
    QString version(const QString &separator) const override;
    QString id(const QString &separator) const override;
    Status trySetName(const QString &name) override { return setIdentity(DesignField::Name, name); }
    Status trySetVendor(const QString &vendor) override
    {
        return setIdentity(DesignField::Vendor, vendor);
    }
    Status setVersion(const QString &version) override;
    Status trySetLibrary(const QString &library) override
    {
        return setIdentity(DesignField::Library, library);
    }
    QString designType() const override;
    QString structureId() const override { return state.document().text(DesignField::Structure); }
    Status trySetStructureId(const QString &id) override;
    QString description() const override { return state.document().text(DesignField::Description); }
    Status trySetDescription(const QString &description) override
    {
        return setText(DesignField::Description, description);
    }
    QString author() const override { return state.document().text(DesignField::Author); }
    Status trySetAuthor(const QString &author) override
    {
        return setText(DesignField::Author, author);
    }
    bool isReadOnly() const override { return state.isReadOnly(); }
    Status trySetReadOnly(bool readOnly) override;
    bool isBusy() const override { return busy; }
    void setBusy(bool isBusy, const QString &reason, bool notify) override;
    bool isModified() const override { return state.document().isModified(); }
    void startProcessingCycle() override { changes.begin(); }
    void endProcessingCycle(bool notify) override
    {
        changes.end(notify);
        builds.saveRecords();
    }
    QString workingFolderPath() const override { return state.folder(); }
    Status tryAssignPhysicalWorkingFolderPath(const QString &path) override;
    QString componentFileName() const override
    {
        return state.isPlaced() ? state.document().path() : QString();
    }
    Status trySaveToComponentFile() override;
    FileState componentFileState() const override;
    Status overwriteComponentFile() override;
    Status reloadComponentFile() override;

    DesignFile *fileByActualPath(const QString &path, bool byNameOnly) const override
    {
        return byNameOnly ? files.findByName(path) : files.find(path);
    }
    Result<DesignFile *> tryAddFile(const QString &actualPath, const QString &node,
                                    bool notify) override;
    Status tryRemoveFile(const QString &actualPath) override { return files.remove(actualPath); }
    QList<DesignFile *> filesUnderNode(const QString &node, bool recursive) const override
    {
        return files.underNode(node, recursive);
    }
    bool hasNode(const QString &node) const override { return files.hasNode(node); }
    QStringList nodeNames() const override { return files.nodeNames(); }
    QList<QPointer<DesignFile>> activeFiles() const override { return files.active.get(); }
    void setActiveFiles(const QList<QPointer<DesignFile>> &active) override;

    DesignFolder *folderByActualPath(const QString &path) const override
    {
        return folderItems.find(path);
    }
    Result<DesignFolder *> tryAddFolder(const QString &actualPath) override
    {
        return folderItems.add(actualPath);
    }
    Status tryRemoveFolder(const QString &actualPath) override
    {
        return folderItems.remove(actualPath);
    }
    QList<DesignFolder *> folders() const override { return folderItems.all(); }
    QList<QPointer<DesignFolder>> activeFolders() const override
    {
        return folderItems.active.get();
    }
    void setActiveFolders(const QList<QPointer<DesignFolder>> &active) override;

    DesignProperty *propertyByName(const QString &name) const override
    {
        return propertyItems.find(name);
    }
    Result<DesignProperty *> tryAddProperty(const QString &name,
                                            const Qtilities::Core::QtilitiesCategory &category,
                                            const QVariant &value, bool readOnly) override
    {
        return propertyItems.add(name, category, value, readOnly);
    }
    Status tryRemoveProperty(const QString &name) override { return propertyItems.remove(name); }
    QList<DesignProperty *> properties() const override { return propertyItems.all(); }
    QList<QPointer<DesignProperty>> activeProperties() const override
    {
        return propertyItems.active.get();
    }
    void setActiveProperties(const QList<QPointer<DesignProperty>> &active) override;

    Status tryRenameFile(const QString &path, const QString &newPath) override;
    Status tryMoveFile(const QString &path, const QString &node) override;
    Status tryRestoreFile(const QString &path) override { return files.restore(path); }
    Status tryRestoreFolder(const QString &path) override { return folderItems.restore(path); }
    Status tryRestoreProperty(const QString &name) override { return propertyItems.restore(name); }

    QStringList buildConfigurationNames() const override { return builds.names(); }
    BuildConfiguration *buildConfiguration(const QString &name) const override
    {
        return builds.find(name);
    }
    BuildConfiguration *activeBuildConfiguration() const override { return builds.active(); }
    void setActiveBuildConfiguration(BuildConfiguration *configuration) override
    {
        builds.setActive(configuration);
    }
    Result<BuildConfiguration *> tryAddBuildConfiguration(const QString &name) override
    {
        return builds.add(name);
    }
    Status tryRemoveBuildConfiguration(const QString &name) override { return builds.remove(name); }

private:
    Design(const DocumentFormat &documentFormat, std::unique_ptr<DesignDocument> document);

    void load();
    void clearItems();
    Status setIdentity(DesignField field, const QString &text);
    Status setText(DesignField field, const QString &text);
    // Why the design cannot become what a document says.
    Status checkReload(const DesignDocument &document) const;

    const DocumentFormat &format;
    DesignRegistry *registry = nullptr;
    bool busy = false;
    // Outlives what may still tell of a change when it goes.
    ProcessingCycles changes;
    DesignState state;
    DesignFiles files;
    DesignFolders folderItems;
    DesignProperties propertyItems;
    DesignBuilds builds;
    DesignPlace place;
};

} // namespace MorvalenCore
