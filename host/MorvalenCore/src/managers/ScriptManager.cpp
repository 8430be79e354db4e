#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/ScriptManager.h>

#include <Qtilities/Logger.h>
#include <Qtilities/Replaceable.h>

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

Qtilities::Core::Replaceable<ScriptManager> &slot()
{
    static auto *const theSlot = new Qtilities::Core::Replaceable<ScriptManager>;
    return *theSlot;
}

} // namespace

ScriptManager::ScriptManager(QObject *parent) : QObject(parent) { }

ScriptManager::~ScriptManager() = default;

ScriptManager *ScriptManager::instance() { return slot().get(); }

void ScriptManager::setInstance(ScriptManager *manager) { slot().set(manager); }

void ScriptManager::addKnownScriptType(const QString &scriptType,
                                       const LinkedScriptParameters &parameters)
{
    types.insert(scriptType, parameters);
}

QStringList ScriptManager::knownScriptTypes() const { return types.keys(); }

LinkedScriptParameters ScriptManager::scriptParameters(const QString &scriptType) const
{
    return types.value(scriptType);
}

AbstractScriptedAction *ScriptManager::createAction(const QString &scriptType,
                                                    const QString &filePath)
{
    const auto known = types.constFind(scriptType);
    const DesignManager *const manager = DesignManager::instance();
    if (known == types.cend() || !manager)
        return nullptr;
    const DesignManager::ObjectFactory *const factory = manager->factory(known->instanceTag);
    if (!factory) {
        Qtilities::Logging::Logger::instance()->logMessage(
            QString(), Qtilities::Logging::Logger::Warning,
            u"No action can be made for scripts of type \"%1\": the design manager has no factory "
            "\"%2\""_s.arg(scriptType, known->instanceTag));
        return nullptr;
    }
    QObject *const object = factory->createInstance();
    auto *const action = qobject_cast<AbstractScriptedAction *>(object);
    if (!action) {
        delete object;
        return nullptr;
    }
    action->setFilePath(filePath);
    action->setName(QFileInfo(filePath).completeBaseName());
    return action;
}

} // namespace MorvalenCore
