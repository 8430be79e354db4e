#pragma once

#include "tests/fakes/FakeHost.h"

#include <MorvalenCore/ScriptManager.h>

// What the scripting floor asks of a design manager besides designs.
class ScriptingDesignManager : public FakeDesignManager
{
public:
    explicit ScriptingDesignManager(Journal &theJournal)
        : FakeDesignManager(theJournal),
          journal(theJournal)
    {
    }

    bool registerFactory(const ObjectFactory *newFactory,
                         const Qtilities::Core::FactoryItemID &id) override
    {
        journal.perform(callText("designs.registerFactory", {id.tag, id.category}));
        factories.insert(id.tag, newFactory);
        return true;
    }
    const ObjectFactory *factory(const QString &tag) const override { return factories.value(tag); }
    QStringList extensionWidgetContexts() const override { return contexts; }

    QHash<QString, const ObjectFactory *> factories;
    QStringList contexts;

private:
    Journal &journal;
};

class ScriptingScriptManager : public MorvalenCore::ScriptManager
{
public:
    explicit ScriptingScriptManager(Journal &theJournal) : journal(theJournal) { }

    void addKnownScriptType(const QString &type,
                            const MorvalenCore::LinkedScriptParameters &parameters) override
    {
        journal.perform(
            callText("scripts.addKnownScriptType",
                     {type, parameters.scriptType, parameters.factoryTag, parameters.instanceTag}));
        MorvalenCore::ScriptManager::addKnownScriptType(type, parameters);
    }

private:
    Journal &journal;
};

class ScriptingMorvalenManager : public FakeMorvalenManager
{
public:
    void addExtensionWidget(const MorvalenCore::ExtensionWidgetParameters &parameters) override
    {
        extensions.append(parameters);
    }

    QList<MorvalenCore::ExtensionWidgetParameters> extensions;
};

// The fake host with what the scripting floor asks of it.
class ScriptingHost : public FakeHost
{
public:
    ScriptingHost()
    {
        MorvalenCore::DesignManager::setInstance(&designManager);
        MorvalenCore::ScriptManager::setInstance(&scripts);
        MorvalenCore::MorvalenManager::setInstance(&manager);
    }
    ~ScriptingHost() { MorvalenCore::ScriptManager::setInstance(nullptr); }

    ScriptingDesignManager designManager {journal};
    ScriptingScriptManager scripts {journal};
    ScriptingMorvalenManager manager;
};
