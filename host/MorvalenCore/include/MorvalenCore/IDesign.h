#pragma once

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignFolder.h>
#include <MorvalenCore/DesignProperty.h>

#include <Qtilities/IObjectBase.h>
#include <Qtilities/statuslog.h>

#include <QList>
#include <QPointer>
#include <QStringList>
#include <QVariant>

namespace MorvalenCore::Interfaces {

// One design: its identity, its state, and everything in it. Items belong to the design and go
// with it.
//
// The operations that a design can refuse have names that begin with "try"; they return why and log
// nothing. Beside each is the form that commands call: with an error text that says why, or without
// one (or with a null one), and then the log says it.
class IDesign : virtual public Qtilities::Core::Interfaces::IObjectBase
{
public:
    using Status = Qtilities::Core::Status;
    template <typename Value>
    using Result = Qtilities::Core::Result<Value>;

    // Identity.
    virtual QString name() const = 0;
    virtual QString vendor() const = 0;
    virtual QString library() const = 0;
    virtual QString version(const QString &separator) const = 0;
    // Vendor, library, name and version joined by the separator; with "." the id by which the
    // design manager knows the design.
    virtual QString id(const QString &separator) const = 0;
    virtual Status trySetName(const QString &name) = 0;
    virtual void setName(const QString &name) { warn(trySetName(name)); }
    virtual Status trySetVendor(const QString &vendor) = 0;
    virtual void setVendor(const QString &vendor) { warn(trySetVendor(vendor)); }
    virtual Status trySetLibrary(const QString &library) = 0;
    virtual void setLibrary(const QString &library) { warn(trySetLibrary(library)); }
    virtual Status setVersion(const QString &version)
    {
        Q_UNUSED(version)
        return Status::unsupported(QStringLiteral("The version of the design cannot be changed"));
    }

    // What it is.
    virtual QString designType() const = 0;
    virtual QString structureId() const = 0;
    virtual Status trySetStructureId(const QString &id) = 0;
    virtual void setStructureId(const QString &id) { warn(trySetStructureId(id)); }
    virtual QString description() const = 0;
    virtual Status trySetDescription(const QString &description) = 0;
    virtual void setDescription(const QString &description)
    {
        warn(trySetDescription(description));
    }
    virtual QString author() const = 0;
    virtual Status trySetAuthor(const QString &author) = 0;
    virtual void setAuthor(const QString &author) { warn(trySetAuthor(author)); }

    // State.
    virtual bool isReadOnly() const = 0;
    // A design whose file cannot be written stays read-only, and a remark says so.
    virtual Status trySetReadOnly(bool readOnly) = 0;
    virtual void setReadOnly(bool readOnly) { warn(trySetReadOnly(readOnly)); }
    virtual bool isBusy() const = 0;
    virtual void setBusy(bool busy, const QString &reason, bool notify) = 0;
    virtual bool isModified() const = 0;
    // Brackets a batch of changes; cycles nest.
    virtual void startProcessingCycle() = 0;
    virtual void endProcessingCycle(bool notify) = 0;

    // Place on disk. Paths are absolute and clean.
    virtual QString workingFolderPath() const = 0;
    // Makes the path the design's working folder: creates it, with the folders of the design's
    // structure and the component file. Fails, with nothing left behind, when it cannot be used: it
    // is there and not empty, or the design has another one. For the folder that the design has,
    // makes what is missing in it.
    virtual Status tryAssignPhysicalWorkingFolderPath(const QString &path) = 0;
    virtual bool assignPhysicalWorkingFolderPath(const QString &path)
    {
        return Qtilities::Logging::logStatus(tryAssignPhysicalWorkingFolderPath(path));
    }
    virtual QString componentFileName() const = 0;
    virtual Status trySaveToComponentFile() = 0;
    virtual bool saveToComponentFile(QString *error)
    {
        return trySaveToComponentFile().toErrorText(error);
    }
    // Reads the component file again: the design becomes what the file says, its id included;
    // changes that were not saved are gone. All items are new ones; those that were active and are
    // still there are active again. Refused, with nothing changed, when the file is no good or has
    // the id of another open design, and while a build is under way.
    virtual Status reloadComponentFile()
    {
        return Status::unsupported(QStringLiteral("The design cannot be read again"));
    }

    // Files. A path may be absolute or relative to the folder of the component file.
    virtual DesignFile *fileByActualPath(const QString &path, bool byNameOnly) const = 0;
    // An empty node lets the design choose one.
    virtual Result<DesignFile *> tryAddFile(const QString &actualPath, const QString &node,
                                            bool notify) = 0;
    virtual DesignFile *addFile(const QString &actualPath, const QString &node, bool notify,
                                QString *error)
    {
        return made(tryAddFile(actualPath, node, notify), error);
    }
    virtual Status tryRemoveFile(const QString &actualPath) = 0;
    virtual bool removeFile(const QString &actualPath)
    {
        return removed(tryRemoveFile(actualPath));
    }
    // The files of a node, all files for an empty one, in document order; each path once.
    virtual QList<DesignFile *> filesUnderNode(const QString &node, bool recursive) const = 0;
    virtual bool hasNode(const QString &node) const = 0;
    // The names of the nodes in document order, each once, those without files too.
    virtual QStringList nodeNames() const = 0;
    virtual QList<QPointer<DesignFile>> activeFiles() const = 0;
    virtual void setActiveFiles(const QList<QPointer<DesignFile>> &files) = 0;

    // Folders.
    virtual DesignFolder *folderByActualPath(const QString &path) const = 0;
    virtual Result<DesignFolder *> tryAddFolder(const QString &actualPath) = 0;
    virtual DesignFolder *addFolder(const QString &actualPath, QString *error)
    {
        return made(tryAddFolder(actualPath), error);
    }
    virtual Status tryRemoveFolder(const QString &actualPath) = 0;
    virtual bool removeFolder(const QString &actualPath)
    {
        return removed(tryRemoveFolder(actualPath));
    }
    virtual QList<DesignFolder *> folders() const = 0;
    virtual QList<QPointer<DesignFolder>> activeFolders() const = 0;
    virtual void setActiveFolders(const QList<QPointer<DesignFolder>> &folders) = 0;

    // Properties.
    virtual DesignProperty *propertyByName(const QString &name) const = 0;
    virtual Result<DesignProperty *>
    tryAddProperty(const QString &name, const Qtilities::Core::QtilitiesCategory &category,
                   const QVariant &value, bool readOnly) = 0;
    virtual DesignProperty *addProperty(const QString &name,
                                        const Qtilities::Core::QtilitiesCategory &category,
                                        const QVariant &value, bool readOnly, QString *error)
    {
        return made(tryAddProperty(name, category, value, readOnly), error);
    }
    virtual Status tryRemoveProperty(const QString &name) = 0;
    virtual bool removeProperty(const QString &name) { return removed(tryRemoveProperty(name)); }
    virtual QList<DesignProperty *> properties() const = 0;
    virtual QList<QPointer<DesignProperty>> activeProperties() const = 0;
    virtual void setActiveProperties(const QList<QPointer<DesignProperty>> &properties) = 0;

    // Build configurations.
    virtual QStringList buildConfigurationNames() const = 0;
    virtual BuildConfiguration *buildConfiguration(const QString &name) const = 0;
    virtual BuildConfiguration *activeBuildConfiguration() const = 0;
    // A null configuration changes nothing.
    virtual void setActiveBuildConfiguration(BuildConfiguration *configuration) = 0;
    // A new configuration without macros and steps. The design refuses it when the name is no good
    // or taken, or when it is read-only.
    virtual Result<BuildConfiguration *> tryAddBuildConfiguration(const QString &name)
    {
        Q_UNUSED(name)
        return noOtherConfigurations();
    }
    // Removes a configuration and destroys it; what builds have made stays on disk. Refused in the
    // same way, also while its build is under way.
    virtual Status tryRemoveBuildConfiguration(const QString &name)
    {
        Q_UNUSED(name)
        return noOtherConfigurations();
    }

    BuildConfiguration *addBuildConfiguration(const QString &name, QString *error)
    {
        return made(tryAddBuildConfiguration(name), error);
    }
    bool removeBuildConfiguration(const QString &name, QString *error)
    {
        return said(tryRemoveBuildConfiguration(name), error);
    }

private:
    static void warn(const Status &status)
    {
        Qtilities::Logging::logStatus(status, Qtilities::Logging::Logger::Warning);
    }
    static bool said(const Status &status, QString *error)
    {
        return error ? status.toErrorText(error)
                     : Qtilities::Logging::logStatus(status, Qtilities::Logging::Logger::Warning);
    }
    template <typename Item>
    static Item *made(const Result<Item *> &result, QString *error)
    {
        return said(result.status(), error) ? result.value() : nullptr;
    }
    // That there is nothing to remove is not worth a warning.
    static bool removed(const Status &status)
    {
        return status.kind() != Status::Kind::NotFound
            && Qtilities::Logging::logStatus(status, Qtilities::Logging::Logger::Warning);
    }
    static Status noOtherConfigurations()
    {
        return Status::unsupported(
            QStringLiteral("The design cannot have other build configurations"));
    }
};

} // namespace MorvalenCore::Interfaces

Q_DECLARE_INTERFACE(MorvalenCore::Interfaces::IDesign, "com.MorvalenCore.Interfaces.IDesign/1.0")
