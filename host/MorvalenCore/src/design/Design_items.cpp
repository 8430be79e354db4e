// What the design hands on to its parts.

#include "design/Design.h"

namespace MorvalenCore {

DesignFile *Design::fileByActualPath(const QString &path, bool byNameOnly) const
{
    return byNameOnly ? files.findByName(path) : files.find(path);
}

DesignFile *Design::addFile(const QString &actualPath, const QString &node, bool notify,
                            QString *error)
{
    if (notify)
        return files.add(actualPath, node, error);
    startProcessingCycle();
    DesignFile *file = files.add(actualPath, node, error);
    endProcessingCycle(false);
    return file;
}

bool Design::removeFile(const QString &actualPath) { return files.remove(actualPath); }

QList<DesignFile *> Design::filesUnderNode(const QString &node, bool recursive) const
{
    return files.underNode(node, recursive);
}

bool Design::hasNode(const QString &node) const { return files.hasNode(node); }

QStringList Design::nodeNames() const { return files.nodeNames(); }

QList<QPointer<DesignFile>> Design::activeFiles() const { return files.active.get(); }

void Design::setActiveFiles(const QList<QPointer<DesignFile>> &active)
{
    files.active.set(active);
    announceChange();
}

DesignFolder *Design::folderByActualPath(const QString &path) const
{
    return folderItems.find(path);
}

DesignFolder *Design::addFolder(const QString &actualPath, QString *error)
{
    return folderItems.add(actualPath, error);
}

bool Design::removeFolder(const QString &actualPath) { return folderItems.remove(actualPath); }

QList<DesignFolder *> Design::folders() const { return folderItems.all(); }

QList<QPointer<DesignFolder>> Design::activeFolders() const { return folderItems.active.get(); }

void Design::setActiveFolders(const QList<QPointer<DesignFolder>> &active)
{
    folderItems.active.set(active);
    announceChange();
}

DesignProperty *Design::propertyByName(const QString &name) const
{
    return propertyItems.find(name);
}

DesignProperty *Design::addProperty(const QString &name,
                                    const Qtilities::Core::QtilitiesCategory &category,
                                    const QVariant &value, bool readOnly, QString *error)
{
    return propertyItems.add(name, category, value, readOnly, error);
}

bool Design::removeProperty(const QString &name) { return propertyItems.remove(name); }

QList<DesignProperty *> Design::properties() const { return propertyItems.all(); }

QList<QPointer<DesignProperty>> Design::activeProperties() const
{
    return propertyItems.active.get();
}

void Design::setActiveProperties(const QList<QPointer<DesignProperty>> &active)
{
    propertyItems.active.set(active);
    announceChange();
}

QStringList Design::buildConfigurationNames() const { return builds.names(); }

BuildConfiguration *Design::buildConfiguration(const QString &name) const
{
    return builds.find(name);
}

BuildConfiguration *Design::activeBuildConfiguration() const { return builds.active(); }

void Design::setActiveBuildConfiguration(BuildConfiguration *configuration)
{
    builds.setActive(configuration);
}

BuildConfiguration *Design::addBuildConfiguration(const QString &name, QString *error)
{
    return builds.add(name, error);
}

bool Design::removeBuildConfiguration(const QString &name, QString *error)
{
    return builds.remove(name, error);
}

} // namespace MorvalenCore
