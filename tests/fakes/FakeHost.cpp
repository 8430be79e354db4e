#include "tests/fakes/FakeHost.h"

#include <Qtilities/QtilitiesCoreApplication.h>

using Qtilities::Core::QtilitiesCoreApplication;

FakeHost::FakeHost()
{
    objects.registerFactoryProvider(&factory);
    QtilitiesCoreApplication::setObjectManager(&objects);
    Qtilities::Logging::Logger::setInstance(&logger);
    Qtilities::ProjectManagement::ProjectManager::setInstance(&projects);
    MorvalenCore::ChangeBracket::setInstance(&bracket);
    MorvalenCore::DesignManager::setInstance(&designs);
    MorvalenCore::DesignStructureManager::setInstance(&structures);
    MorvalenCore::EditorManager::setInstance(&editors);
    MorvalenCore::MorvalenManager::setInstance(&program);
}

FakeHost::~FakeHost()
{
    factory.watching = false;
    QtilitiesCoreApplication::setObjectManager(nullptr);
    Qtilities::Logging::Logger::setInstance(nullptr);
    Qtilities::ProjectManagement::ProjectManager::setInstance(nullptr);
    MorvalenCore::ChangeBracket::setInstance(nullptr);
    MorvalenCore::DesignManager::setInstance(nullptr);
    MorvalenCore::DesignStructureManager::setInstance(nullptr);
    MorvalenCore::EditorManager::setInstance(nullptr);
    MorvalenCore::MorvalenManager::setInstance(nullptr);
}

FakeDesign *FakeHost::activeDesign(const QString &name)
{
    FakeDesign *design = designs.openDesign(name);
    designs.active = {design};
    return design;
}
