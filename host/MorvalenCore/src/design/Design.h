#pragma once

#include "configurations/DesignBuilds.h"
#include "design/DesignRegistry.h"
#include "disk/WorkingFolder.h"
#include "items/DesignFiles.h"
#include "items/DesignFolders.h"
#include "items/DesignProperties.h"
#include "items/DesignState.h"

#include <MorvalenCore/IDesign.h>

#include <memory>

namespace MorvalenCore {

// A design that is kept in an IP-XACT component file. A new one has none until it gets a working
// folder. Belongs to the design manager once it is attached to it.
class Design final : public QObject, public Interfaces::IDesign
{
    Q_OBJECT
    Q_INTERFACES(MorvalenCore::Interfaces::IDesign)

public:
    // What open() gives: a design, perhaps with warnings, or an error; each "FILE:LINE: reason".
    struct Opened
    {
        std::unique_ptr<Design> design;
        QString error;
        QStringList warnings;
    };

    // A new design without a working folder. Null, with the reason in *error, for a name that a
    // component cannot have.
    static std::unique_ptr<Design> create(const QString &type, const QString &name, QString *error);
    // The design of a component file; a relative path is of the process's folder.
    static Opened open(const QString &fileName);

    // A design that was never attached takes back the working folder that was made for it.
    ~Design() override;

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

    // Called by the design manager. A closed design keeps its identity, but has no items any more
    // and is not saved.
    void attachTo(DesignRegistry *openDesigns);
    void close();

    // Writes a copy; the design stays where it is.
    bool saveCopy(const QString &fileName, QString *error);

    // The parts of the design beyond what every design has.
    DesignFiles &fileItems() { return files; }

    QString name() const override;
    QString vendor() const override;
    QString library() const override;
    QString version(const QString &separator) const override;
    QString id(const QString &separator) const override;
    void setName(const QString &name) override;
    void setVendor(const QString &vendor) override;
    void setLibrary(const QString &library) override;
    QString designType() const override;
    QString structureId() const override;
    void setStructureId(const QString &id) override;
    QString description() const override;
    void setDescription(const QString &description) override;
    QString author() const override;
    void setAuthor(const QString &author) override;
    bool isReadOnly() const override;
    void setReadOnly(bool readOnly) override;
    bool isBusy() const override { return busy; }
    void setBusy(bool isBusy, const QString &reason, bool notify) override;
    bool isModified() const override;
    void startProcessingCycle() override;
    void endProcessingCycle(bool notify) override;
    QString workingFolderPath() const override;
    bool assignPhysicalWorkingFolderPath(const QString &path) override;
    QString componentFileName() const override;
    bool saveToComponentFile(QString *error) override;

    DesignFile *fileByActualPath(const QString &path, bool byNameOnly) const override;
    DesignFile *addFile(const QString &actualPath, const QString &node, bool notify,
                        QString *error) override;
    bool removeFile(const QString &actualPath) override;
    QList<DesignFile *> filesUnderNode(const QString &node, bool recursive) const override;
    bool hasNode(const QString &node) const override;
    QStringList nodeNames() const override;
    QList<QPointer<DesignFile>> activeFiles() const override;
    void setActiveFiles(const QList<QPointer<DesignFile>> &active) override;
    DesignFolder *folderByActualPath(const QString &path) const override;
    DesignFolder *addFolder(const QString &actualPath, QString *error) override;
    bool removeFolder(const QString &actualPath) override;
    QList<DesignFolder *> folders() const override;
    QList<QPointer<DesignFolder>> activeFolders() const override;
    void setActiveFolders(const QList<QPointer<DesignFolder>> &active) override;
    DesignProperty *propertyByName(const QString &name) const override;
    DesignProperty *addProperty(const QString &name,
                                const Qtilities::Core::QtilitiesCategory &category,
                                const QVariant &value, bool readOnly, QString *error) override;
    bool removeProperty(const QString &name) override;
    QList<DesignProperty *> properties() const override;
    QList<QPointer<DesignProperty>> activeProperties() const override;
    void setActiveProperties(const QList<QPointer<DesignProperty>> &active) override;
    QStringList buildConfigurationNames() const override;
    BuildConfiguration *buildConfiguration(const QString &name) const override;
    BuildConfiguration *activeBuildConfiguration() const override;
    void setActiveBuildConfiguration(BuildConfiguration *configuration) override;
    BuildConfiguration *addBuildConfiguration(const QString &name, QString *error) override;
    bool removeBuildConfiguration(const QString &name, QString *error) override;

private:
    explicit Design(std::unique_ptr<ComponentDocument> document);

    void load();
    void announceChange();
    void setIdentity(DesignField field, const QString &text);
    void setText(DesignField field, const QString &text);
    bool placeIn(const QString &path, QString *error);
    bool restoreFolders(QString *error) const;
    // The document that a design without a working folder has, written for a component file.
    std::unique_ptr<ComponentDocument> placedDocument(const QString &path, QString *error) const;
    QStringList structureFolders() const;

    DesignState state;
    DesignFiles files;
    DesignFolders folderItems;
    DesignProperties propertyItems;
    DesignBuilds builds;
    WorkingFolder workingFolder;
    DesignRegistry *registry = nullptr;
    bool busy = false;
    int cycles = 0;
    bool changedInCycle = false;
};

} // namespace MorvalenCore
