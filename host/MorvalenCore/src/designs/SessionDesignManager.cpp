#include "designs/SessionDesignManager.h"

#include "design/Design.h"
#include "designs/designname.h"
#include "log/hostlog.h"
#include "session/sessionsettings.h"
#include "structures/structures.h"

#include <Qtilities/QtilitiesCoreApplication.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCoreApplication;

namespace MorvalenCore {

SessionDesignManager::SessionDesignManager(QObject *parent)
    : DesignManager(parent),
      objectManager(QtilitiesCoreApplication::objectManager())
{
    objectManager->registerFactoryProvider(&designFactory);
}

SessionDesignManager::~SessionDesignManager()
{
    if (objectManager)
        objectManager->unregisterFactoryProvider(&designFactory);
    for (IDesign *design : open.all()) {
        disconnect(design->objectBase(), nullptr, this, nullptr);
        delete design->objectBase();
    }
}

QStringList SessionDesignManager::openDesignIds() const { return open.ids(); }

IDesign *SessionDesignManager::design(const QString &id) const { return open.find(id); }

QList<IDesign *> SessionDesignManager::activeDesigns() const
{
    return open.active() ? QList<IDesign *> {open.active()} : QList<IDesign *>();
}

void SessionDesignManager::setActiveDesign(const QString &id)
{
    IDesign *design = open.find(id);
    if (!design || design == open.active())
        return;
    open.activate(design);
    announcements.activeChanged();
}

QStringList SessionDesignManager::designTypes() const { return designTypeNames(); }

QString SessionDesignManager::path(PathKind kind) const
{
    return sessionFolder(kind == DesignsPath ? u"Designs"_s : u"Backups"_s);
}

QString SessionDesignManager::settingsFileName() const { return sessionSettingsFile(); }

bool SessionDesignManager::checkDesignName(const QString &name, QString *error,
                                           const IDesign *renamed) const
{
    if (renamed && renamed->name() == name)
        return true;
    QString refusal = renamed && renamed->isReadOnly()
        ? u"The design \"%1\" is read-only"_s.arg(renamed->name())
        : designNameRefusal(name);
    for (const IDesign *design : open.all()) {
        if (refusal.isEmpty() && design->name() == name)
            refusal = u"A design named \"%1\" is open already"_s.arg(name);
    }
    if (error && !refusal.isEmpty())
        *error = refusal;
    return refusal.isEmpty();
}

bool SessionDesignManager::attachDesign(IDesign *design, bool makeActive, int)
{
    if (!design || open.all().contains(design))
        return false;
    const QString id = design->id(u"."_s);
    if (const QString refusal = idRefusal(id); !refusal.isEmpty()) {
        logError(refusal);
        return false;
    }
    open.add(id, design);
    connect(design->objectBase(), &QObject::destroyed, this, [this, design] { forget(design); });
    if (auto *own = dynamic_cast<Design *>(design))
        own->attachTo(this);
    announcements.attached(design);
    if (makeActive)
        setActiveDesign(id);
    return true;
}

bool SessionDesignManager::registerFactory(const ObjectFactory *factory,
                                           const Qtilities::Core::FactoryItemID &id)
{
    return designFactory.add(factory, id.tag);
}

const DesignManager::ObjectFactory *SessionDesignManager::factory(const QString &tag) const
{
    return designFactory.find(tag);
}

QStringList SessionDesignManager::extensionWidgetContexts() const { return {u"Context.Designs"_s}; }

QString SessionDesignManager::idRefusal(const QString &id) const
{
    return open.find(id) ? u"A design with the id \"%1\" is open already"_s.arg(id) : QString();
}

void SessionDesignManager::designIdChanged(IDesign *design, const QString &oldId)
{
    open.rename(oldId, design->id(u"."_s));
    announcements.idChanged(design, oldId);
}

void SessionDesignManager::designChanged(IDesign *design) { announcements.changed(design); }

// The design may be half destroyed already, when somebody else destroys it.
void SessionDesignManager::forget(IDesign *design)
{
    const bool wasActive = design == open.active();
    announcements.closed(design, open.remove(design));
    if (wasActive)
        announcements.activeChanged();
}

} // namespace MorvalenCore
