#include <MorvalenCore/DesignManager.h>

#include "designs/SessionDesignManager.h"

#include <Qtilities/Replaceable.h>

namespace MorvalenCore {

namespace {

using Slot = Qtilities::Core::Replaceable<DesignManager, SessionDesignManager>;

Slot &slot()
{
    static auto *const theSlot = new Slot;
    return *theSlot;
}

} // namespace

DesignManager::DesignManager(QObject *parent) : QObject(parent) { }

DesignManager::~DesignManager() = default;

DesignManager *DesignManager::instance() { return slot().get(); }

void DesignManager::setInstance(DesignManager *manager) { slot().set(manager); }

} // namespace MorvalenCore
