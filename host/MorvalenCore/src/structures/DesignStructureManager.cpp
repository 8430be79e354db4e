#include <MorvalenCore/DesignStructureManager.h>

#include "log/hostlog.h"
#include "session/sessionsettings.h"
#include "structures/StandardStructureManager.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/makefolder.h>
#include <Qtilities/Replaceable.h>

using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

using Slot = Qtilities::Core::Replaceable<DesignStructureManager, StandardStructureManager>;

Slot &slot()
{
    static auto *const theSlot = new Slot;
    return *theSlot;
}

} // namespace

DesignStructureManager::DesignStructureManager(QObject *parent) : QObject(parent) { }

DesignStructureManager::~DesignStructureManager() = default;

DesignStructureManager *DesignStructureManager::instance() { return slot().get(); }

void DesignStructureManager::setInstance(DesignStructureManager *manager) { slot().set(manager); }

QStringList DesignStructureManager::designStructureNamesForDesign(const QString &) const
{
    return designStructureNames();
}

QString DesignStructureManager::defaultStructureIdForDesignType(const QString &designType) const
{
    return designStructureID(defaultStructureNameForDesignType(designType));
}

// The first of those that can be used.
QString DesignStructureManager::defaultStructureNameForDesignType(const QString &designType) const
{
    return designStructureNamesForDesign(designType).value(0);
}

Status DesignStructureManager::trySetDefaultStructureNameForDesignType(const QString &designType,
                                                                       const QString &)
{
    return Status::unsupported(
        QStringLiteral("The default structure of \"%1\" cannot be changed").arg(designType));
}

QString DesignStructureManager::designStructureID(const QString &structureName) const
{
    return designStructureNames().contains(structureName) ? structureName : QString();
}

QString DesignStructureManager::activeDesignRepositoryPathForStructure(const QString &structure,
                                                                       bool create) const
{
    if (!designStructureNames().contains(structure))
        return {};
    QString path = DesignManager::instance()->path(DesignManager::DesignsPath);
    if (path.isEmpty())
        path = sessionFolder(QStringLiteral("Designs"));
    const Status made = create ? Qtilities::Core::makeFolder(path) : Status();
    if (!made.isOk())
        logError(QStringLiteral("The folder \"%1\" cannot be made: %2").arg(path, made.text()));
    return path;
}

bool DesignStructureManager::setDefaultStructureNameForDesignType(const QString &designType,
                                                                  const QString &structureName)
{
    return trySetDefaultStructureNameForDesignType(designType, structureName).isOk();
}

} // namespace MorvalenCore
