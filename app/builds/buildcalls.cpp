#include "app/builds/buildcalls.h"

#include "app/builds/unsavedpages.h"
#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/journal/journaling.h"
#include "app/messages/questions.h"
#include "app/messages/ReportDialog.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/Cleaner.h>
#include <MorvalenCore/IDesign.h>
#include <Qtilities/Logger.h>

#include <QCoreApplication>
#include <QDir>
#include <QTimer>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::Cleaner;
using MorvalenCore::DesignCleanParameters;
using MorvalenCore::DesignFile;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(buildcalls)
};

bool isRefused()
{
    const Status free = running::check();
    if (!free.isOk())
        Logger::instance()->logPriorityMessage(QString(), Logger::Warning, free.text());
    return !free.isOk();
}

// The receiver is what the call is about: when it goes, the call is not made.
template <typename Call>
void later(QObject *receiver, const Call &call)
{
    QTimer::singleShot(0, receiver, [call] {
        if (!isRefused())
            call();
    });
}

// What the cleaner would delete from disk.
QStringList generatedFiles(const IDesign &design, bool allVersions)
{
    QStringList paths;
    const QList<DesignFile *> files = design.filesUnderNode(QString(), true);
    for (const DesignFile *file : files) {
        if (file->isGenerated()
            && (allVersions || file->generatedVersion() == design.version(u"."_s)))
            paths.append(QDir::toNativeSeparators(file->actualPath()));
    }
    return paths;
}

} // namespace

void buildcalls::run(BuildConfiguration *configuration, bool onlyOutdated)
{
    later(configuration, [configuration, onlyOutdated] {
        const QPointer<BuildConfiguration> asked(configuration);
        // While the user was asked, it may have gone, or a script may have begun.
        if (!unsavedpages::settle() || !asked || isRefused())
            return;
        journaling::built(*asked, onlyOutdated);
        asked->run(onlyOutdated, false);
    });
}

void buildcalls::refresh(BuildConfiguration *configuration)
{
    later(configuration, [configuration] { configuration->refresh(); });
}

void buildcalls::activate(IDesign *design, const QString &configurationName)
{
    later(design->objectBase(), [design, configurationName] {
        design->setActiveBuildConfiguration(design->buildConfiguration(configurationName));
        journaling::configurationActivated(*design, configurationName);
    });
}

void buildcalls::clean(IDesign *design, bool allVersions, QWidget *window)
{
    if (isRefused())
        return;
    const QPointer<QObject> object = design->objectBase();
    const QStringList files = generatedFiles(*design, allVersions);
    if (!files.isEmpty()
        && !questions::mayDelete(
            window,
            Texts::tr("Delete these generated files from disk, for good, and from the design?"),
            files))
        return;
    // Time has passed.
    if (!object || isRefused())
        return;
    DesignCleanParameters parameters;
    parameters.grouping.setGeneratedItemsOnly(true);
    parameters.grouping.setVersionCurrent(true);
    parameters.grouping.setVersionsPrevious(allVersions);
    Cleaner::Cleaning cleaning;
    {
        HostCall attempt(window, Texts::tr("Not Cleaned"));
        cleaning = Cleaner().tryCleanDesign(design, parameters);
        journaling::cleaned(*design, allVersions);
        for (const Status &failure : cleaning.failures)
            attempt.takeAndLog(failure, Logger::Warning);
    }
    auto *dialog = new ReportDialog(Texts::tr("Cleaning Report"), cleaning.report, window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

bool buildcalls::isBuilding(const IDesign &design)
{
    const QStringList names = design.buildConfigurationNames();
    return std::any_of(names.cbegin(), names.cend(), [&design](const QString &name) {
        const BuildConfiguration *configuration = design.buildConfiguration(name);
        return configuration && configuration->runState() == BuildConfiguration::Running;
    });
}
