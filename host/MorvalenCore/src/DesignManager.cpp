#include <MorvalenCore/DesignManager.h>

namespace MorvalenCore {

namespace {
QPointer<DesignManager> replacement;
}

DesignManager::DesignManager(QObject *parent) : QObject(parent) { }

DesignManager::~DesignManager() = default;

DesignManager *DesignManager::instance() { return replacement; }

void DesignManager::setInstance(DesignManager *manager) { replacement = manager; }

} // namespace MorvalenCore
