#include "structures/StandardStructureManager.h"

#include "session/sessionsettings.h"
#include "structures/structures.h"

#include <MorvalenCore/DesignManager.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

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

// A host may have types of its own.
bool isType(const QString &name)
{
    return findType(name) || DesignManager::instance()->designTypes().contains(name);
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
    return designType.isEmpty() || isType(designType) ? designStructureNames() : QStringList();
}

QString StandardStructureManager::defaultStructureNameForDesignType(const QString &designType) const
{
    if (!isType(designType))
        return {};
    const QString chosen = readSetting(settingsGroup + u'/' + designType);
    if (findDesignStructure(chosen))
        return chosen;
    const DesignType *type = findType(designType);
    return type ? type->defaultStructure : designStructureNames().value(0);
}

Status
StandardStructureManager::trySetDefaultStructureNameForDesignType(const QString &designType,
                                                                  const QString &structureName)
{
    if (!isType(designType))
        return Status::notFound(u"There is no design type \"%1\""_s.arg(designType));
    if (!findDesignStructure(structureName))
        return Status::notFound(u"There is no design structure \"%1\""_s.arg(structureName));
    return writeSetting(settingsGroup + u'/' + designType, structureName);
}

} // namespace MorvalenCore
