#include "designs/SessionDesignManager.h"

#include "component/ComponentFormat.h"
#include "configurations/severalbuilds.h"
#include "design/Design.h"
#include "designs/backup.h"
#include "designs/designname.h"
#include "designs/DoomedFolder.h"
#include "structures/structures.h"

#include <Qtilities/paths.h>
#include <Qtilities/QtilitiesCoreApplication.h>

#include <QFileInfo>

#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

QString placeOf(const IDesign &design)
{
    const auto *const own = dynamic_cast<const Design *>(&design);
    return own ? own->componentFileOnDisk()
               : Qtilities::Core::canonicalPath(design.componentFileName());
}

} // namespace

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

Status SessionDesignManager::tryDesignName(const QString &name, const IDesign *renamed) const
{
    if (renamed && renamed->name() == name)
        return {};
    if (renamed && renamed->isReadOnly())
        return Status::readOnly(u"The design \"%1\" is read-only"_s.arg(renamed->name()));
    if (const Status spelling = checkSpelling(name); !spelling.isOk())
        return spelling;
    for (const IDesign *design : open.all()) {
        if (design->name() == name)
            return Status::alreadyExists(u"A design named \"%1\" is open already"_s.arg(name));
    }
    return {};
}

Status SessionDesignManager::tryAttachDesign(IDesign *design, bool makeActive)
{
    if (!design)
        return Status::invalidArgument(u"There is no design to open"_s);
    if (open.all().contains(design))
        return Status::alreadyExists(u"The design \"%1\" is open already"_s.arg(design->name()));
    const QString id = design->id(u"."_s);
    if (const Status refused = checkId(id); !refused.isOk())
        return refused;
    open.add(id, design, placeOf(*design));
    connect(design->objectBase(), &QObject::destroyed, this, [this, design] {
        if (open.all().contains(design))
            forget(design);
    });
    if (auto *own = dynamic_cast<Design *>(design))
        own->attachTo(this);
    announcements.attached(design);
    if (makeActive)
        setActiveDesign(id);
    return {};
}

Result<IDesign *> SessionDesignManager::tryParseDesignFromFile(const QString &fileName)
{
    if (fileName.isEmpty())
        return Status::invalidArgument(u"No file is named to open a design from"_s);
    if (open.findByFile(fileName))
        return Status::alreadyExists(u"The component file \"%1\" is open already"_s.arg(fileName));
    Result<std::unique_ptr<Design>> opened = Design::open(ComponentFormat::instance(), fileName);
    if (!opened.isOk())
        return opened.status();
    const Status attached = tryAttachDesign(opened.value().get(), true).after(opened.status());
    if (!attached.isOk())
        return attached;
    return {opened.value().release(), attached};
}

Status SessionDesignManager::tryParseDesignToFile(IDesign *design, const QString &fileName,
                                                  bool overwrite)
{
    auto *const own = dynamic_cast<Design *>(design);
    if (!own)
        return Status::unsupported(u"The design cannot be written as a component file"_s);
    if (fileName.isEmpty())
        return Status::invalidArgument(
            u"No file is named to write the design \"%1\" to"_s.arg(own->name()));
    const IDesign *const owner = open.findByFile(fileName);
    if (owner && owner != design)
        return Status::busy(u"\"%1\" is the component file of the open design \"%2\""_s.arg(
            fileName, owner->name()));
    if (!overwrite && QFileInfo::exists(fileName))
        return Status::alreadyExists(u"\"%1\" is there already"_s.arg(fileName));
    return own->saveCopy(fileName);
}

Status SessionDesignManager::tryCloseDesign(const QString &id, bool deleteWorkingFolder)
{
    IDesign *const design = open.find(id);
    if (!design)
        return Status::notFound(u"No design with the id \"%1\" is open"_s.arg(id));
    std::optional<DoomedFolder> doomed;
    if (deleteWorkingFolder)
        doomed.emplace(*design, path(DesignsPath));
    Status status = doomed && doomed->mayGo() ? Status() : saveOrBackUp(design);
    if (!status.isOk())
        return status;

    letGo(design);
    const Status deleted = doomed ? doomed->remove() : Status();
    if (!deleted.isOk())
        status.addWarning(
            u"The working folder of the design \"%1\" stays: %2"_s.arg(id, deleted.text()));
    return status;
}

Status SessionDesignManager::tryDiscardDesign(const QString &id)
{
    IDesign *const design = open.find(id);
    if (!design)
        return Status::notFound(u"No design with the id \"%1\" is open"_s.arg(id));
    for (const QString &name : design->buildConfigurationNames()) {
        if (design->buildConfiguration(name)->runState() == BuildConfiguration::Running)
            return Status::busy(u"The design \"%1\" is being built"_s.arg(design->name()));
    }
    letGo(design);
    return {};
}

Result<QString> SessionDesignManager::tryBackUpDesign(IDesign *design)
{
    auto *const own = dynamic_cast<Design *>(design);
    return own ? backUp(*own) : DesignManager::tryBackUpDesign(design);
}

QList<Status> SessionDesignManager::tryPrepareForShutdown(int reason)
{
    QList<Status> all;
    // What could not be saved then is told of, and backed up.
    if (std::exchange(isPreparedToQuit, reason == QuitCommand))
        return all;
    for (IDesign *design : open.all())
        all.append(saveOrBackUp(design));
    return all;
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

Status SessionDesignManager::checkId(const QString &id) const
{
    return open.find(id)
        ? Status::alreadyExists(u"A design with the id \"%1\" is open already"_s.arg(id))
        : Status();
}

void SessionDesignManager::designIdChanged(IDesign *design, const QString &oldId)
{
    open.rename(oldId, design->id(u"."_s));
    announcements.idChanged(design, oldId);
}

void SessionDesignManager::designChanged(IDesign *design)
{
    isPreparedToQuit = false;
    announcements.changed(design);
}

// A closed design is destroyed later.
void SessionDesignManager::letGo(IDesign *design)
{
    forget(design);
    if (auto *own = dynamic_cast<Design *>(design))
        own->close();
    closed.keep(std::unique_ptr<QObject>(design->objectBase()));
}

// The design may be half destroyed already, when somebody else destroys it.
void SessionDesignManager::forget(IDesign *design)
{
    const bool wasActive = design == open.active();
    announcements.closed(design, open.remove(design));
    if (wasActive)
        announcements.activeChanged();
}

bool SessionDesignManager::build(const QList<BuildConfiguration *> &configurations,
                                 const BuildOptions &options)
{
    const std::optional<bool> built = buildSeveral(configurations, options);
    return built ? *built : DesignManager::build(configurations, options);
}

} // namespace MorvalenCore
