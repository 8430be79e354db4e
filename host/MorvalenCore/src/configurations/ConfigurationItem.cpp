#include "configurations/ConfigurationItem.h"

#include "configurations/DesignBuilds.h"
#include "disk/itempaths.h"
#include "items/DesignState.h"

#include <QDir>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

ConfigurationItem::ConfigurationItem(DesignBuilds &owner, DesignState &designState,
                                     DesignFiles &files, BuildRecords &records,
                                     const BuildDescription &description)
    : BuildConfiguration(nullptr),
      builds(owner),
      state(designState),
      data(description),
      macros(*this, designState),
      runner(*this, designState, files, records)
{
}

QString ConfigurationItem::nameOfDefault() { return u"Default"_s; }

QString ConfigurationItem::getTargetPath() const
{
    return data.targetPath.isEmpty() ? u"build/"_s + data.name : data.targetPath;
}

Status ConfigurationItem::trySetTargetPath(const QString &path)
{
    BuildDescription changed = data;
    changed.targetPath = path;
    return builds.change(*this, changed);
}

Status ConfigurationItem::trySetDescription(const BuildDescription &description)
{
    return builds.change(*this, description);
}

Result<QString> ConfigurationItem::targetPathOnDisk() const
{
    // A name is no path: nothing in it stands for something else.
    if (data.targetPath.isEmpty())
        return QDir::cleanPath(state.folder() + u'/' + getTargetPath());
    return tryPathOnDisk(actualItemPath(data.targetPath, state.folder()), state.folder());
}

QStringList ConfigurationItem::stepNamesInOrder(int count) const
{
    const QStringList names = runner.stepNames();
    return count < 0 ? names : names.first(std::min<qsizetype>(count, names.size()));
}

QList<BuildStep> ConfigurationItem::steps() const { return data.steps + stepsOfFiles(); }

QList<BuildStep> ConfigurationItem::stepsOfFiles() const
{
    QList<BuildStep> steps;
    if (data.name != nameOfDefault())
        return steps;
    const DocumentFiles &files = state.document().files();
    for (const FileId &file : files.filesWithBuildCommand()) {
        const FileBuildCommand build = files.buildCommand(file);
        const QString path = files.path(file);
        const QString onDisk = pathOnDisk(actualItemPath(path, state.folder()), state.folder());
        QStringList arguments {build.command, build.flags, u"$(INPUTS)"_s};
        arguments.removeAll(QString());
        BuildStep step;
        step.name = build.targetName.isEmpty() ? path : build.targetName;
        step.command = arguments.join(u' ');
        step.inputs = QStringList {onDisk.isEmpty() ? path : onDisk};
        if (!build.targetName.isEmpty())
            step.outputs = QStringList {build.targetName};
        steps.append(step);
    }
    return steps;
}

Status ConfigurationItem::tryRun(bool onlyOutdated, bool dryRun)
{
    return dryRun ? runner.runDry() : runner.run(onlyOutdated);
}

bool ConfigurationItem::run(bool onlyOutdated, bool dryRun)
{
    return dryRun ? BuildConfiguration::run(onlyOutdated, true) : runNow(onlyOutdated, {});
}

bool ConfigurationItem::runWith(const BuildOptions &options) { return runNow(true, options); }

bool ConfigurationItem::runNow(bool onlyOutdated, const BuildOptions &options)
{
    // The item may be gone when the run has ended.
    bool told = false;
    const auto tell = [&told](const Status &end) {
        logEnd(end);
        told = true;
    };
    const Status ended = runner.run(onlyOutdated, tell, options);
    return told ? ended.isOk() : logEnd(ended);
}

} // namespace MorvalenCore
