#include <MorvalenCore/DesignStructureManager.h>

#include <QPointer>

namespace MorvalenCore {

namespace {
QPointer<DesignStructureManager> replacement;
}

DesignStructureManager::DesignStructureManager(QObject *parent) : QObject(parent) { }

DesignStructureManager::~DesignStructureManager() = default;

DesignStructureManager *DesignStructureManager::instance() { return replacement; }

void DesignStructureManager::setInstance(DesignStructureManager *manager)
{
    replacement = manager;
}

} // namespace MorvalenCore
