#include "structures/StandardStructureManager.h"

#include "log/hostlog.h"
#include "session/sessionsettings.h"
#include "structures/structures.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

const QString settingsGroup = u"Designs/DefaultStructures"_s;

const DesignType *findType(const QString &name)
{
    for (const DesignType &type : designTypeList()) {
        if (type.name == name)
            return &type;
    }
    return nullptr;
}

} // namespace

QStringList StandardStructureManager::designStructureNames() const
{
    QStringList names;
    for (const DesignStructure &structure : designStructures())
        names.append(structure.name);
    return names;
}

QStringList StandardStructureManager::designStructureNamesForDesign(const QString &designType) const
{
    // Any structure goes with any type.
    return designType.isEmpty() || findType(designType) ? designStructureNames() : QStringList();
}

QString StandardStructureManager::defaultStructureIdForDesignType(const QString &designType) const
{
    return designStructureID(defaultStructureNameForDesignType(designType));
}

QString StandardStructureManager::defaultStructureNameForDesignType(const QString &designType) const
{
    const DesignType *type = findType(designType);
    if (!type)
        return {};
    const QString chosen = readSetting(settingsGroup, designType);
    return findDesignStructure(chosen) ? chosen : type->defaultStructure;
}

bool StandardStructureManager::setDefaultStructureNameForDesignType(const QString &designType,
                                                                    const QString &structureName)
{
    return findType(designType) && findDesignStructure(structureName)
        && writeSetting(settingsGroup, designType, structureName);
}

QString StandardStructureManager::designStructureID(const QString &structureName) const
{
    return findDesignStructure(structureName) ? structureName : QString();
}

QString StandardStructureManager::activeDesignRepositoryPathForStructure(const QString &structure,
                                                                         bool create) const
{
    if (!findDesignStructure(structure))
        return {};
    const QString path = sessionFolder(u"Designs"_s);
    if (create && !QDir().mkpath(path))
        logError(u"The folder \"%1\" cannot be made"_s.arg(path));
    return path;
}

} // namespace MorvalenCore
