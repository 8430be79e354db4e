#include "app/calls/ChangeOrigins.h"

#include "interp/ScriptRuns.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/DesignManager.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace {

constexpr qsizetype shownCharacters = 60;

ChangeOrigins *&theOrigins()
{
    static ChangeOrigins *origins = nullptr;
    return origins;
}

} // namespace

ChangeOrigins::ChangeOrigins(QObject *parent) : QObject(parent)
{
    theOrigins() = this;
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designChanged, this, &ChangeOrigins::changed);
    connect(manager, &DesignManager::designClosed, this,
            [this](const QString &id) { origins.remove(id); });
    connect(manager, &DesignManager::designIdChanged, this,
            [this](const QString &oldId, const QString &newId) {
                if (origins.contains(oldId))
                    origins.insert(newId, origins.take(oldId));
            });
}

ChangeOrigins::~ChangeOrigins()
{
    if (theOrigins() == this)
        theOrigins() = nullptr;
}

QString ChangeOrigins::only(const QString &designId)
{
    return theOrigins() ? theOrigins()->origins.value(designId) : QString();
}

void ChangeOrigins::changed(const QString &designId)
{
    const IDesign *design = DesignManager::instance()->design(designId);
    if (!design || !design->isModified()) {
        origins.remove(designId);
        return;
    }
    const auto known = origins.constFind(designId);
    if (known == origins.cend() || !known->isEmpty())
        origins.insert(designId, present(designId));
}

QString ChangeOrigins::present(const QString &designId) const
{
    const ScriptRuns *runs = ScriptRuns::instance();
    if (runs && runs->isRunning()) {
        QString command = runs->command().simplified();
        if (command.isEmpty())
            return tr("a script");
        if (command.size() > shownCharacters)
            command = command.first(shownCharacters) + u'\u2026';
        return tr("the command \"%1\"").arg(command);
    }
    const QList<BuildConfiguration *> running = BuildMonitor::instance()->running();
    for (const BuildConfiguration *configuration : running) {
        const IDesign *design = DesignManager::instance()->design(designId);
        if (design
            && design->buildConfiguration(configuration->configurationName()) == configuration)
            return tr("the build \"%1\"").arg(configuration->configurationName());
    }
    return QString();
}
