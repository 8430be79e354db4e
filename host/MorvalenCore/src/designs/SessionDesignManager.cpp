#include "designs/SessionDesignManager.h"

#include "component/ComponentFormat.h"
#include "design/Design.h"
#include "designs/backup.h"
#include "designs/designname.h"
#include "designs/DoomedFolder.h"
#include "log/hostlog.h"
#include "session/sessionsettings.h"
#include "structures/structures.h"

#include <Qtilities/QtilitiesCoreApplication.h>

#include <QFileInfo>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

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

IDesign *SessionDesignManager::parseDesignFromFile(const QString &, const QString &fileName)
{
    Result<std::unique_ptr<Design>> opened = openDesign(fileName);
    for (const Status::Remark &remark : opened.status().remarks())
        logWarning(remark.text);
    if (!opened.isOk()) {
        logError(opened.status().text());
        return nullptr;
    }
    std::unique_ptr<Design> design = std::move(opened).value();
    return attachDesign(design.get(), true, 0) ? design.release() : nullptr;
}

Result<std::unique_ptr<Design>> SessionDesignManager::openDesign(const QString &fileName) const
{
    if (fileName.isEmpty())
        return Status::invalidArgument(u"No file is named to open a design from"_s);
    if (open.findByFile(fileName))
        return Status::alreadyExists(u"The component file \"%1\" is open already"_s.arg(fileName));
    return Design::open(ComponentFormat::instance(), fileName);
}

bool SessionDesignManager::parseDesignToFile(IDesign *design, const QString &fileName,
                                             const QString &, int *warnings, int *errors, int,
                                             bool overwrite)
{
    const Status written = writeCopy(design, fileName, overwrite);
    if (warnings)
        *warnings = 0;
    if (errors)
        *errors = written.isOk() ? 0 : 1;
    if (!written.isOk())
        logError(written.text());
    return written.isOk();
}

Status SessionDesignManager::writeCopy(IDesign *design, const QString &fileName,
                                       bool overwrite) const
{
    auto *const own = dynamic_cast<Design *>(design);
    const IDesign *const owner = open.findByFile(fileName);
    if (!own)
        return Status::unsupported(u"The design cannot be written as a component file"_s);
    if (fileName.isEmpty())
        return Status::invalidArgument(
            u"No file is named to write the design \"%1\" to"_s.arg(own->name()));
    if (owner && owner != design)
        return Status::conflict(u"\"%1\" is the component file of the open design \"%2\""_s.arg(
            fileName, owner->name()));
    if (!overwrite && QFileInfo::exists(fileName))
        return Status::alreadyExists(u"\"%1\" is there already"_s.arg(fileName));
    return own->saveCopy(fileName);
}

bool SessionDesignManager::closeDesign(const QString &id, bool deleteWorkingFolder)
{
    IDesign *design = open.find(id);
    if (!design) {
        logError(u"No design with the id \"%1\" is open"_s.arg(id));
        return false;
    }
    std::optional<DoomedFolder> doomed;
    if (deleteWorkingFolder)
        doomed.emplace(*design, path(DesignsPath));
    if ((!doomed || !doomed->mayGo()) && !saveOrBackUp(design))
        return false;

    disconnect(design->objectBase(), nullptr, this, nullptr);
    forget(design);
    if (auto *own = dynamic_cast<Design *>(design))
        own->close();
    closed.keep(std::unique_ptr<QObject>(design->objectBase()));

    const Status deleted = doomed ? doomed->remove() : Status();
    if (!deleted.isOk())
        logWarning(u"The working folder of the design \"%1\" stays: %2"_s.arg(id, deleted.text()));
    return true;
}

bool SessionDesignManager::closeDesigns(const QStringList &ids, bool deleteWorkingFolders)
{
    bool allClosed = true;
    for (const QString &id : ids) {
        if (!closeDesign(id, deleteWorkingFolders))
            allClosed = false;
    }
    return allClosed;
}

void SessionDesignManager::prepareForShutdown(int &)
{
    for (IDesign *design : open.all())
        saveOrBackUp(design);
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
