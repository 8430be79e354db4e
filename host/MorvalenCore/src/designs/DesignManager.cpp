#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/ScriptManager.h>

#include "designs/SessionDesignManager.h"
#include "log/hostlog.h"
#include "session/sessionsettings.h"

#include <Qtilities/Replaceable.h>
#include <Qtilities/statuslog.h>

#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

namespace {

using Slot = Qtilities::Core::Replaceable<DesignManager, SessionDesignManager>;

Slot &slot()
{
    static auto *const theSlot = new Slot;
    return *theSlot;
}

// A manager that comes after those who registered factories knows none of them.
void warnOfLostFactories(const DesignManager *former, const DesignManager &manager)
{
    if (!former || former == &manager)
        return;
    for (const QString &type : ScriptManager::instance()->knownScriptTypes()) {
        const QString tag = ScriptManager::instance()->scriptParameters(type).instanceTag;
        if (former->factory(tag) && !manager.factory(tag)) {
            logWarning(u"The new design manager has no factory for scripts of type \"%1\", which "
                       "the former one had. Set it before TclScriptManager is made."_s.arg(type));
        }
    }
}

} // namespace

DesignManager::DesignManager(QObject *parent) : QObject(parent) { }

DesignManager::~DesignManager() = default;

DesignManager *DesignManager::instance() { return slot().get(); }

void DesignManager::setInstance(DesignManager *manager)
{
    if (manager)
        warnOfLostFactories(slot().current(), *manager);
    slot().set(manager);
}

QString DesignManager::path(PathKind kind) const
{
    return sessionFolder(kind == DesignsPath ? u"Designs"_s : u"Backups"_s);
}

QString DesignManager::settingsFileName() const { return sessionSettingsFile(); }

Status DesignManager::tryDesignName(const QString &name, const IDesign *) const
{
    return name.isEmpty() ? Status::invalidArgument(u"A design needs a name"_s) : Status();
}

Status DesignManager::tryAttachDesign(IDesign *, bool)
{
    return Status::unsupported(u"This program takes up no designs"_s);
}

Result<IDesign *> DesignManager::tryParseDesignFromFile(const QString &)
{
    return Status::unsupported(u"This program opens no files as designs"_s);
}

Status DesignManager::tryParseDesignToFile(IDesign *, const QString &, bool)
{
    return Status::unsupported(u"This program writes no copies of designs"_s);
}

Status DesignManager::tryCloseDesign(const QString &id, bool)
{
    return design(id) ? Status::unsupported(u"This program closes no designs"_s)
                      : Status::notFound(u"There is no open design \"%1\""_s.arg(id));
}

// What the designs say decides; one that cannot be saved is none that could be lost.
QList<Status> DesignManager::tryPrepareForShutdown(int)
{
    QList<Status> all;
    for (const QString &id : openDesignIds()) {
        IDesign *const open = design(id);
        all.append(open && open->isModified() ? open->trySaveToComponentFile() : Status());
    }
    return all;
}

bool DesignManager::registerFactory(const ObjectFactory *factory,
                                    const Qtilities::Core::FactoryItemID &id)
{
    if (factories.contains(id.tag))
        return false;
    factories.insert(id.tag, factory);
    return true;
}

const DesignManager::ObjectFactory *DesignManager::factory(const QString &tag) const
{
    return factories.value(tag);
}

QList<Status> DesignManager::tryCloseDesigns(const QStringList &ids, bool deleteWorkingFolders)
{
    QList<Status> all;
    for (const QString &id : ids)
        all.append(tryCloseDesign(id, deleteWorkingFolders));
    return all;
}

bool DesignManager::build(const QList<BuildConfiguration *> &configurations,
                          const BuildOptions &options)
{
    bool allWell = true;
    const QList<QPointer<BuildConfiguration>> all(configurations.begin(), configurations.end());
    for (const QPointer<BuildConfiguration> &configuration : all) {
        if (allWell || options.keepGoing || options.isDry)
            allWell = configuration && configuration->run(true, options.isDry) && allWell;
    }
    return allWell;
}

Status DesignManager::tryDiscardDesign(const QString &)
{
    return Status::unsupported(QStringLiteral("The changes of a design cannot be dropped"));
}

Result<QString> DesignManager::tryBackUpDesign(IDesign *)
{
    return Status::unsupported(QStringLiteral("Designs cannot be backed up"));
}

bool DesignManager::checkDesignName(const QString &name, QString *error,
                                    const IDesign *renamed) const
{
    return tryDesignName(name, renamed).toErrorText(error);
}

bool DesignManager::attachDesign(IDesign *design, bool makeActive, int)
{
    return logStatus(tryAttachDesign(design, makeActive));
}

IDesign *DesignManager::parseDesignFromFile(const QString &, const QString &fileName)
{
    const Result<IDesign *> parsed = tryParseDesignFromFile(fileName);
    return logStatus(parsed.status()) ? parsed.value() : nullptr;
}

bool DesignManager::parseDesignToFile(IDesign *design, const QString &fileName, const QString &,
                                      int *warnings, int *errors, int, bool overwrite)
{
    const Status status = tryParseDesignToFile(design, fileName, overwrite);
    if (warnings)
        *warnings = int(status.remarks().size());
    if (errors)
        *errors = status.isOk() ? 0 : 1;
    return logStatus(status);
}

bool DesignManager::closeDesign(const QString &id, bool deleteWorkingFolder)
{
    return logStatus(tryCloseDesign(id, deleteWorkingFolder));
}

bool DesignManager::closeDesigns(const QStringList &ids, bool deleteWorkingFolders)
{
    bool allClosed = true;
    for (const Status &status : tryCloseDesigns(ids, deleteWorkingFolders))
        allClosed = logStatus(status) && allClosed;
    return allClosed;
}

void DesignManager::prepareForShutdown(int &reason)
{
    for (const Status &status : tryPrepareForShutdown(reason))
        logStatus(status);
}

} // namespace MorvalenCore
