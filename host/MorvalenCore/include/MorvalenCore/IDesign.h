#pragma once

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignFolder.h>
#include <MorvalenCore/DesignProperty.h>

#include <Qtilities/IObjectBase.h>
#include <Qtilities/statuslog.h>

#include <QDir>
#include <QFileInfo>
#include <QList>
#include <QPointer>
#include <QStringList>
#include <QVariant>

#include <algorithm>

namespace MorvalenCore::Interfaces {

// One design: its identity, its state, and everything in it. Items belong to the design and go
// with it.
//
// The operations that a design can refuse have names that begin with "try"; they return why and log
// nothing. Beside each is the form that commands call: with an error text that says why, or without
// one (or with a null one), and then the log says it.
//
// A design has a name; the rest may be left out: it then has no such things, and refuses to get
// them with a sentence that says so. Which items are active is kept here.
class IDesign : virtual public Qtilities::Core::Interfaces::IObjectBase
{
public:
    using Status = Qtilities::Core::Status;
    template <typename Value>
    using Result = Qtilities::Core::Result<Value>;

    // Identity.
    virtual QString name() const = 0;
    virtual QString vendor() const { return {}; }
    virtual QString library() const { return {}; }
    virtual QString version(const QString &separator) const
    {
        Q_UNUSED(separator)
        return {};
    }
    // Vendor, library, name and version joined by the separator, those that are empty left out;
    // with "." the id by which the design manager knows the design.
    virtual QString id(const QString &separator) const
    {
        QStringList parts {vendor(), library(), name(), version(separator)};
        parts.removeAll(QString());
        return parts.join(separator);
    }
    virtual Status trySetName(const QString &)
    {
        return unsupported(QStringLiteral("The name of the design cannot be changed"));
    }
    virtual void setName(const QString &name) { warn(trySetName(name)); }
    virtual Status trySetVendor(const QString &)
    {
        return unsupported(QStringLiteral("The vendor of the design cannot be changed"));
    }
    virtual void setVendor(const QString &vendor) { warn(trySetVendor(vendor)); }
    virtual Status trySetLibrary(const QString &)
    {
        return unsupported(QStringLiteral("The library of the design cannot be changed"));
    }
    virtual void setLibrary(const QString &library) { warn(trySetLibrary(library)); }
    virtual Status setVersion(const QString &version)
    {
        Q_UNUSED(version)
        return Status::unsupported(QStringLiteral("The version of the design cannot be changed"));
    }

    // What it is.
    virtual QString designType() const { return {}; }
    virtual QString structureId() const { return {}; }
    virtual Status trySetStructureId(const QString &)
    {
        return unsupported(QStringLiteral("The structure of the design cannot be changed"));
    }
    virtual void setStructureId(const QString &id) { warn(trySetStructureId(id)); }
    virtual QString description() const { return {}; }
    virtual Status trySetDescription(const QString &)
    {
        return unsupported(QStringLiteral("The description of the design cannot be changed"));
    }
    virtual void setDescription(const QString &description)
    {
        warn(trySetDescription(description));
    }
    virtual QString author() const { return {}; }
    virtual Status trySetAuthor(const QString &)
    {
        return unsupported(QStringLiteral("The author of the design cannot be changed"));
    }
    virtual void setAuthor(const QString &author) { warn(trySetAuthor(author)); }

    // State.
    virtual bool isReadOnly() const { return false; }
    // A design whose file cannot be written stays read-only, and a remark says so.
    virtual Status trySetReadOnly(bool)
    {
        return unsupported(QStringLiteral("Whether the design is read-only cannot be changed"));
    }
    virtual void setReadOnly(bool readOnly) { warn(trySetReadOnly(readOnly)); }
    virtual bool isBusy() const { return false; }
    virtual void setBusy(bool, const QString &reason, bool notify)
    {
        Q_UNUSED(reason)
        Q_UNUSED(notify)
    }
    virtual bool isModified() const { return false; }
    // Brackets a batch of changes; cycles nest.
    virtual void startProcessingCycle() { }
    virtual void endProcessingCycle(bool notify) { Q_UNUSED(notify) }

    // Place on disk. Paths are absolute and clean.
    virtual QString workingFolderPath() const { return {}; }
    // Makes the path the design's working folder: creates it, with the folders of the design's
    // structure and the component file. Fails, with nothing left behind, when it cannot be used: it
    // is there and not empty, or the design has another one. For the folder that the design has,
    // makes what is missing in it.
    virtual Status tryAssignPhysicalWorkingFolderPath(const QString &)
    {
        return unsupported(QStringLiteral("The design has no working folder"));
    }
    virtual bool assignPhysicalWorkingFolderPath(const QString &path)
    {
        return Qtilities::Logging::logStatus(tryAssignPhysicalWorkingFolderPath(path));
    }
    virtual QString componentFileName() const { return {}; }
    virtual Status trySaveToComponentFile()
    {
        return unsupported(QStringLiteral("The design cannot be saved"));
    }
    virtual bool saveToComponentFile(QString *error)
    {
        return trySaveToComponentFile().toErrorText(error);
    }
    // What has become of the component file since the design has read or written it.
    enum class FileState { Same, Changed, Missing };
    virtual FileState componentFileState() const { return FileState::Same; }
    // Saves the design in place of what another program has written there.
    virtual Status overwriteComponentFile()
    {
        return Status::unsupported(QStringLiteral("The component file cannot be overwritten"));
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
    virtual DesignFile *fileByActualPath(const QString &path, bool byNameOnly) const
    {
        return findAmong(filesUnderNode({}, true), [&](const DesignFile *file) {
            return byNameOnly ? file->fileName() == path : file->actualPath() == absolutePath(path);
        });
    }
    // An empty node lets the design choose one.
    virtual Result<DesignFile *> tryAddFile(const QString &actualPath, const QString &node,
                                            bool notify)
    {
        Q_UNUSED(actualPath)
        Q_UNUSED(node)
        Q_UNUSED(notify)
        return noOthers("files");
    }
    virtual DesignFile *addFile(const QString &actualPath, const QString &node, bool notify,
                                QString *error)
    {
        return made(tryAddFile(actualPath, node, notify), error);
    }
    virtual Status tryRemoveFile(const QString &actualPath)
    {
        Q_UNUSED(actualPath)
        return noOthers("files");
    }
    virtual bool removeFile(const QString &actualPath)
    {
        return removed(tryRemoveFile(actualPath));
    }
    // The files of a node, all files for an empty one, in document order; each path once.
    virtual QList<DesignFile *> filesUnderNode(const QString &node, bool recursive) const
    {
        Q_UNUSED(node)
        Q_UNUSED(recursive)
        return {};
    }
    virtual bool hasNode(const QString &node) const { return nodeNames().contains(node); }
    // The names of the nodes in document order, each once, those without files too.
    virtual QStringList nodeNames() const { return {}; }
    virtual QList<QPointer<DesignFile>> activeFiles() const { return filesActive; }
    virtual void setActiveFiles(const QList<QPointer<DesignFile>> &files) { filesActive = files; }

    // Folders.
    virtual DesignFolder *folderByActualPath(const QString &path) const
    {
        return findAmong(folders(), [&](const DesignFolder *folder) {
            return folder->actualPath() == absolutePath(path);
        });
    }
    virtual Result<DesignFolder *> tryAddFolder(const QString &actualPath)
    {
        Q_UNUSED(actualPath)
        return noOthers("folders");
    }
    virtual DesignFolder *addFolder(const QString &actualPath, QString *error)
    {
        return made(tryAddFolder(actualPath), error);
    }
    virtual Status tryRemoveFolder(const QString &actualPath)
    {
        Q_UNUSED(actualPath)
        return noOthers("folders");
    }
    virtual bool removeFolder(const QString &actualPath)
    {
        return removed(tryRemoveFolder(actualPath));
    }
    virtual QList<DesignFolder *> folders() const { return {}; }
    virtual QList<QPointer<DesignFolder>> activeFolders() const { return foldersActive; }
    virtual void setActiveFolders(const QList<QPointer<DesignFolder>> &folders)
    {
        foldersActive = folders;
    }

    // Properties.
    virtual DesignProperty *propertyByName(const QString &name) const
    {
        return findAmong(properties(), [&](const DesignProperty *property) {
            return property->propertyData().name() == name;
        });
    }
    virtual Result<DesignProperty *>
    tryAddProperty(const QString &name, const Qtilities::Core::QtilitiesCategory &category,
                   const QVariant &value, bool readOnly)
    {
        Q_UNUSED(name)
        Q_UNUSED(category)
        Q_UNUSED(value)
        Q_UNUSED(readOnly)
        return noOthers("properties");
    }
    virtual DesignProperty *addProperty(const QString &name,
                                        const Qtilities::Core::QtilitiesCategory &category,
                                        const QVariant &value, bool readOnly, QString *error)
    {
        return made(tryAddProperty(name, category, value, readOnly), error);
    }
    virtual Status tryRemoveProperty(const QString &name)
    {
        Q_UNUSED(name)
        return noOthers("properties");
    }
    virtual bool removeProperty(const QString &name) { return removed(tryRemoveProperty(name)); }
    virtual QList<DesignProperty *> properties() const { return {}; }
    virtual QList<QPointer<DesignProperty>> activeProperties() const { return propertiesActive; }
    virtual void setActiveProperties(const QList<QPointer<DesignProperty>> &properties)
    {
        propertiesActive = properties;
    }

    // Build configurations.
    virtual QStringList buildConfigurationNames() const { return {}; }
    virtual BuildConfiguration *buildConfiguration(const QString &name) const
    {
        Q_UNUSED(name)
        return nullptr;
    }
    virtual BuildConfiguration *activeBuildConfiguration() const { return nullptr; }
    // A null configuration changes nothing.
    virtual void setActiveBuildConfiguration(BuildConfiguration *configuration)
    {
        Q_UNUSED(configuration)
    }
    // A new configuration without macros and steps. The design refuses it when the name is no good
    // or taken, or when it is read-only.
    virtual Result<BuildConfiguration *> tryAddBuildConfiguration(const QString &name)
    {
        Q_UNUSED(name)
        return noOthers("build configurations");
    }
    // Removes a configuration and destroys it; what builds have made stays on disk. Refused in the
    // same way, also while its build is under way.
    virtual Status tryRemoveBuildConfiguration(const QString &name)
    {
        Q_UNUSED(name)
        return noOthers("build configurations");
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
    static Status unsupported(const QString &text) { return Status::unsupported(text); }
    static Status noOthers(const char *kind)
    {
        return Status::unsupported(
            QStringLiteral("The design cannot have other %1").arg(QString::fromLatin1(kind)));
    }
    template <typename Item, typename Match>
    static Item *findAmong(const QList<Item *> &items, const Match &matches)
    {
        const auto found = std::find_if(items.begin(), items.end(), matches);
        return found == items.end() ? nullptr : *found;
    }

    QString absolutePath(const QString &path) const
    {
        return QDir::cleanPath(QFileInfo(componentFileName()).dir().absoluteFilePath(path));
    }

    QList<QPointer<DesignFile>> filesActive;
    QList<QPointer<DesignFolder>> foldersActive;
    QList<QPointer<DesignProperty>> propertiesActive;
};

} // namespace MorvalenCore::Interfaces

Q_DECLARE_INTERFACE(MorvalenCore::Interfaces::IDesign, "com.MorvalenCore.Interfaces.IDesign/1.0")
