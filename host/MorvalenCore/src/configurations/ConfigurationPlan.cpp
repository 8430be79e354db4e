#include "configurations/ConfigurationPlan.h"

#include "configurations/ConfigurationItem.h"
#include "configurations/generatedfiles.h"
#include "configurations/targetplaces.h"
#include "disk/itempaths.h"
#include "items/DesignFiles.h"
#include "items/DesignState.h"

#include <MorvalenCore/BuildSettings.h>

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

ConfigurationPlan::ConfigurationPlan(ConfigurationItem &owner, DesignState &designState,
                                     DesignFiles &fileItems)
    : configuration(owner),
      design(designState),
      files(fileItems)
{
}

Result<BuildRequest> ConfigurationPlan::request() const
{
    const Result<BuildSettings> settings = BuildSettings::current();
    if (!settings.isOk())
        return settings.status();
    BuildRequest request;
    request.configuration = configuration.configurationName();
    request.workingFolder = design.folder();
    if (!QFileInfo(design.folder()).isDir())
        return Status::notFound(u"The folder \"%1\" is no longer there"_s.arg(design.folder()));
    const Result<QString> targetPath = configuration.targetPathOnDisk();
    if (!targetPath.isOk())
        return targetPath.status();
    request.targetPath = targetPath.value();
    request.macros = configuration.macroTable().rawValues(ConfigurationMacros | DesignMacros);
    request.steps = configuration.steps();
    request.launcher = settings.value().launcher;
    request.pools = settings.value().pools;
    for (const QString &node : nodesNamedIn(request.steps)) {
        if (!files.hasNode(node))
            continue;
        const Result<QStringList> paths = pathsUnder(node);
        if (!paths.isOk())
            return paths.status();
        request.nodes[node] = paths.value();
    }
    return request;
}

Result<QStringList> ConfigurationPlan::pathsUnder(const QString &node) const
{
    QStringList paths;
    for (const DesignFile *file : files.underNode(node, true)) {
        const Result<QString> path = tryPathOnDisk(file->actualPath(), design.folder());
        if (!path.isOk())
            return path.status();
        paths.append(path.value());
    }
    return paths;
}

PlanKeeper::Kept ConfigurationPlan::planned()
{
    const Result<BuildRequest> wanted = request();
    return wanted.isOk() ? plans.planFor(wanted.value()) : wanted.status();
}

PlanKeeper::Kept ConfigurationPlan::placed()
{
    const PlanKeeper::Kept kept = planned();
    if (!kept.isOk())
        return kept;
    const Status place = checkTargetPlace(kept.value()->plan, configuration.getTargetPath());
    return place.isOk() ? kept : place;
}

PlanKeeper::Kept ConfigurationPlan::checked()
{
    const PlanKeeper::Kept kept = placed();
    if (!kept.isOk() || kept.value()->isChecked)
        return kept;
    const Status harmless = checkOverwriting(kept.value()->plan, files);
    if (!harmless.isOk())
        return harmless;
    kept.value()->isChecked = true;
    return kept;
}

} // namespace MorvalenCore
