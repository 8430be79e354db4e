#pragma once

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignFolder.h>
#include <MorvalenCore/DesignProperty.h>

#include <Qtilities/IObjectBase.h>

#include <QList>
#include <QPointer>
#include <QStringList>
#include <QVariant>

namespace MorvalenCore::Interfaces {

// One design: its identity, its state, and everything in it. Items belong to the design and go
// with it. A setter without a result leaves the value as it is when the design refuses it, with a
// warning in the log; error texts are one sentence without a final line feed.
class IDesign : virtual public Qtilities::Core::Interfaces::IObjectBase
{
public:
    // Identity.
    virtual QString name() const = 0;
    virtual QString vendor() const = 0;
    virtual QString library() const = 0;
    virtual QString version(const QString &separator) const = 0;
    // Vendor, library, name and version joined by the separator; with "." the id by which the
    // design manager knows the design.
    virtual QString id(const QString &separator) const = 0;
    virtual void setName(const QString &name) = 0;
    virtual void setVendor(const QString &vendor) = 0;
    virtual void setLibrary(const QString &library) = 0;

    // What it is.
    virtual QString designType() const = 0;
    virtual QString structureId() const = 0;
    virtual void setStructureId(const QString &id) = 0;
    virtual QString description() const = 0;
    virtual void setDescription(const QString &description) = 0;
    virtual QString author() const = 0;
    virtual void setAuthor(const QString &author) = 0;

    // State.
    virtual bool isReadOnly() const = 0;
    virtual void setReadOnly(bool readOnly) = 0;
    virtual bool isBusy() const = 0;
    virtual void setBusy(bool busy, const QString &reason, bool notify) = 0;
    virtual bool isModified() const = 0;
    // Brackets a batch of changes; cycles nest.
    virtual void startProcessingCycle() = 0;
    virtual void endProcessingCycle(bool notify) = 0;

    // Place on disk. Paths are absolute and clean.
    virtual QString workingFolderPath() const = 0;
    // Makes the path the design's working folder: creates it, with the folders of the design's
    // structure and the component file. False, with nothing left behind and the reason in the
    // log, when it cannot be used: it is there and not empty, or the design has another one. For
    // the folder that the design has, makes what is missing in it.
    virtual bool assignPhysicalWorkingFolderPath(const QString &path) = 0;
    virtual QString componentFileName() const = 0;
    virtual bool saveToComponentFile(QString *error) = 0;

    // Files. A path may be absolute or relative to the folder of the component file.
    virtual DesignFile *fileByActualPath(const QString &path, bool byNameOnly) const = 0;
    // Null, with the reason in *error, when the design refuses the file. An empty node lets the
    // design choose one.
    virtual DesignFile *addFile(const QString &actualPath, const QString &node, bool notify,
                                QString *error) = 0;
    virtual bool removeFile(const QString &actualPath) = 0;
    // The files of a node, all files for an empty one, in document order; each path once.
    virtual QList<DesignFile *> filesUnderNode(const QString &node, bool recursive) const = 0;
    virtual bool hasNode(const QString &node) const = 0;
    // The names of the nodes in document order, each once, those without files too.
    virtual QStringList nodeNames() const = 0;
    virtual QList<QPointer<DesignFile>> activeFiles() const = 0;
    virtual void setActiveFiles(const QList<QPointer<DesignFile>> &files) = 0;

    // Folders.
    virtual DesignFolder *folderByActualPath(const QString &path) const = 0;
    virtual DesignFolder *addFolder(const QString &actualPath, QString *error) = 0;
    virtual bool removeFolder(const QString &actualPath) = 0;
    virtual QList<DesignFolder *> folders() const = 0;
    virtual QList<QPointer<DesignFolder>> activeFolders() const = 0;
    virtual void setActiveFolders(const QList<QPointer<DesignFolder>> &folders) = 0;

    // Properties.
    virtual DesignProperty *propertyByName(const QString &name) const = 0;
    virtual DesignProperty *addProperty(const QString &name,
                                        const Qtilities::Core::QtilitiesCategory &category,
                                        const QVariant &value, bool readOnly, QString *error) = 0;
    virtual bool removeProperty(const QString &name) = 0;
    virtual QList<DesignProperty *> properties() const = 0;
    virtual QList<QPointer<DesignProperty>> activeProperties() const = 0;
    virtual void setActiveProperties(const QList<QPointer<DesignProperty>> &properties) = 0;

    // Build configurations.
    virtual QStringList buildConfigurationNames() const = 0;
    virtual BuildConfiguration *buildConfiguration(const QString &name) const = 0;
    virtual BuildConfiguration *activeBuildConfiguration() const = 0;
    // A null configuration changes nothing.
    virtual void setActiveBuildConfiguration(BuildConfiguration *configuration) = 0;
    // A new configuration without macros and steps; null, with the reason in *error, when the
    // design refuses it: the name is no good or taken, or the design is read-only.
    virtual BuildConfiguration *addBuildConfiguration(const QString &name, QString *error)
    {
        Q_UNUSED(name)
        *error = QStringLiteral("The design cannot have other build configurations");
        return nullptr;
    }
    // Removes a configuration and destroys it; what builds have made stays on disk. Refused in the
    // same way, also while its build is under way.
    virtual bool removeBuildConfiguration(const QString &name, QString *error)
    {
        Q_UNUSED(name)
        *error = QStringLiteral("The design cannot have other build configurations");
        return false;
    }
};

} // namespace MorvalenCore::Interfaces

Q_DECLARE_INTERFACE(MorvalenCore::Interfaces::IDesign, "com.MorvalenCore.Interfaces.IDesign/1.0")
