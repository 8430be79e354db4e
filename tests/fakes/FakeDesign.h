#pragma once

#include "tests/fakes/FakeBuildConfiguration.h"
#include "tests/fakes/FakeDesignFile.h"
#include "tests/fakes/FakeDesignFolder.h"
#include "tests/fakes/FakeDesignProperty.h"

#include <MorvalenCore/IDesign.h>

// A design in memory. Its public members are its state; every change and every look-up with
// arguments is noted in the journal. Items belong to the design.
class FakeDesign : public QObject, public MorvalenCore::Interfaces::IDesign
{
    Q_OBJECT
    Q_INTERFACES(MorvalenCore::Interfaces::IDesign)

public:
    FakeDesign(Journal &theJournal, const QString &name);
    ~FakeDesign() override;

    // Add items without noting it.
    FakeDesignFile *file(const QString &path, const QString &node = {});
    FakeDesignFolder *folder(const QString &path);
    FakeDesignProperty *property(const QString &name, const QVariant &value = {});
    FakeBuildConfiguration *configuration(const QString &name);

    QObject *objectBase() override { return this; }
    const QObject *objectBase() const override { return this; }

    QString name() const override { return theName; }
    QString vendor() const override { return theVendor; }
    QString library() const override { return theLibrary; }
    QString version(const QString &separator) const override;
    QString id(const QString &separator) const override;
    void setName(const QString &name) override;
    void setVendor(const QString &vendor) override;
    void setLibrary(const QString &library) override;
    Qtilities::Core::Status setVersion(const QString &version) override;

    QString designType() const override { return type; }
    QString structureId() const override { return structure; }
    void setStructureId(const QString &id) override;
    QString description() const override { return theDescription; }
    void setDescription(const QString &description) override;
    QString author() const override { return theAuthor; }
    void setAuthor(const QString &author) override;

    bool isReadOnly() const override { return readOnly; }
    void setReadOnly(bool flag) override;
    bool isBusy() const override { return busy; }
    void setBusy(bool flag, const QString &reason, bool notify) override;
    bool isModified() const override { return modified; }
    void startProcessingCycle() override;
    void endProcessingCycle(bool notify) override;

    QString workingFolderPath() const override { return folderPath; }
    bool assignPhysicalWorkingFolderPath(const QString &path) override;
    QString componentFileName() const override { return componentFile; }
    bool saveToComponentFile(QString *error) override;
    Qtilities::Core::Status reloadComponentFile() override;

    MorvalenCore::DesignFile *fileByActualPath(const QString &path, bool byNameOnly) const override;
    MorvalenCore::DesignFile *addFile(const QString &actualPath, const QString &node, bool notify,
                                      QString *error) override;
    bool removeFile(const QString &actualPath) override;
    QList<MorvalenCore::DesignFile *> filesUnderNode(const QString &node,
                                                     bool recursive) const override;
    bool hasNode(const QString &node) const override { return nodes.contains(node); }
    QStringList nodeNames() const override { return nodes; }
    QList<QPointer<MorvalenCore::DesignFile>> activeFiles() const override { return filesActive; }
    void setActiveFiles(const QList<QPointer<MorvalenCore::DesignFile>> &files) override;

    MorvalenCore::DesignFolder *folderByActualPath(const QString &path) const override;
    MorvalenCore::DesignFolder *addFolder(const QString &actualPath, QString *error) override;
    bool removeFolder(const QString &actualPath) override;
    QList<MorvalenCore::DesignFolder *> folders() const override;
    QList<QPointer<MorvalenCore::DesignFolder>> activeFolders() const override
    {
        return foldersActive;
    }
    void setActiveFolders(const QList<QPointer<MorvalenCore::DesignFolder>> &folders) override;

    MorvalenCore::DesignProperty *propertyByName(const QString &name) const override;
    MorvalenCore::DesignProperty *addProperty(const QString &name,
                                              const Qtilities::Core::QtilitiesCategory &category,
                                              const QVariant &value, bool flag,
                                              QString *error) override;
    bool removeProperty(const QString &name) override;
    QList<MorvalenCore::DesignProperty *> properties() const override;
    QList<QPointer<MorvalenCore::DesignProperty>> activeProperties() const override
    {
        return propertiesActive;
    }
    void
    setActiveProperties(const QList<QPointer<MorvalenCore::DesignProperty>> &properties) override;

    QStringList buildConfigurationNames() const override;
    MorvalenCore::BuildConfiguration *buildConfiguration(const QString &name) const override;
    MorvalenCore::BuildConfiguration *activeBuildConfiguration() const override
    {
        return configurationActive;
    }
    void setActiveBuildConfiguration(MorvalenCore::BuildConfiguration *configuration) override;
    Qtilities::Core::Result<MorvalenCore::BuildConfiguration *>
    tryAddBuildConfiguration(const QString &name) override;
    Qtilities::Core::Status tryRemoveBuildConfiguration(const QString &name) override;

    // For the window, which asks for the reason: the same calls.
    Status trySetName(const QString &name) override
    {
        return after([&] { setName(name); });
    }
    Status trySetVendor(const QString &vendor) override
    {
        return after([&] { setVendor(vendor); });
    }
    Status trySetLibrary(const QString &library) override
    {
        return after([&] { setLibrary(library); });
    }
    Status trySetStructureId(const QString &id) override
    {
        return after([&] { setStructureId(id); });
    }
    Status trySetDescription(const QString &description) override
    {
        return after([&] { setDescription(description); });
    }
    Status trySetAuthor(const QString &author) override
    {
        return after([&] { setAuthor(author); });
    }
    Status trySetReadOnly(bool flag) override
    {
        return after([&] { setReadOnly(flag); });
    }
    Status tryAssignPhysicalWorkingFolderPath(const QString &path) override
    {
        // The journal says why, so no sentence is left for the log.
        return assignPhysicalWorkingFolderPath(path) ? Status() : Status::failed({});
    }
    Status trySaveToComponentFile() override
    {
        QString error;
        return saveToComponentFile(&error) ? Status() : Status::io(error);
    }
    Result<MorvalenCore::DesignFile *> tryAddFile(const QString &actualPath, const QString &node,
                                                  bool notify) override
    {
        return made([&](QString *error) { return addFile(actualPath, node, notify, error); });
    }
    Status tryRemoveFile(const QString &actualPath) override
    {
        return outcome(removeFile(actualPath));
    }
    Result<MorvalenCore::DesignFolder *> tryAddFolder(const QString &actualPath) override
    {
        return made([&](QString *error) { return addFolder(actualPath, error); });
    }
    Status tryRemoveFolder(const QString &actualPath) override
    {
        return outcome(removeFolder(actualPath));
    }
    Result<MorvalenCore::DesignProperty *>
    tryAddProperty(const QString &name, const Qtilities::Core::QtilitiesCategory &category,
                   const QVariant &value, bool flag) override
    {
        return made(
            [&](QString *error) { return addProperty(name, category, value, flag, error); });
    }
    Status tryRemoveProperty(const QString &name) override { return outcome(removeProperty(name)); }

    QString theName;
    QString theVendor = QStringLiteral("acme");
    QString theLibrary = QStringLiteral("global");
    QString theVersion = QStringLiteral("1/0");
    QString type = QStringLiteral("Custom Design");
    QString structure;
    QString theDescription;
    QString theAuthor;
    bool readOnly = false;
    bool busy = false;
    bool modified = false;
    QString folderPath;
    QString componentFile;
    QStringList nodes;
    // What the design says when it refuses something.
    QString refusal = QStringLiteral("The design refuses it");

    QList<FakeDesignFile *> allFiles;
    QList<FakeDesignFolder *> allFolders;
    QList<FakeDesignProperty *> allProperties;
    QList<FakeBuildConfiguration *> allConfigurations;
    QList<QPointer<MorvalenCore::DesignFile>> filesActive;
    QList<QPointer<MorvalenCore::DesignFolder>> foldersActive;
    QList<QPointer<MorvalenCore::DesignProperty>> propertiesActive;
    QPointer<MorvalenCore::BuildConfiguration> configurationActive;

private:
    template <typename Call>
    static Status after(const Call &call)
    {
        call();
        return {};
    }
    Status outcome(bool done) const { return done ? Status() : Status::failed(refusal); }
    template <typename Call>
    static auto made(const Call &call) -> Result<decltype(call(nullptr))>
    {
        QString error;
        auto *const item = call(&error);
        if (!item)
            return Status::failed(error);
        return item;
    }

    Journal &journal;
};
