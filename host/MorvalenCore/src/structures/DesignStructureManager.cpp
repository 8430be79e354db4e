#include <MorvalenCore/DesignStructureManager.h>

#include "structures/StandardStructureManager.h"

#include <Qtilities/Replaceable.h>

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

bool DesignStructureManager::setDefaultStructureNameForDesignType(const QString &designType,
                                                                  const QString &structureName)
{
    return trySetDefaultStructureNameForDesignType(designType, structureName).isOk();
}

} // namespace MorvalenCore
