#include "design/ConfigurationItem.h"

#include "design/DesignState.h"
#include "disk/itempaths.h"
#include "hostlog.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

ConfigurationItem::ConfigurationItem(DesignState &designState, const BuildDescription &description)
    : BuildConfiguration(nullptr),
      state(designState),
      data(description),
      macros(*this, designState)
{
}

QString ConfigurationItem::nameOfDefault() { return u"Default"_s; }

QString ConfigurationItem::getTargetPath() const
{
    return data.targetPath.isEmpty() ? u"build/"_s + data.name : data.targetPath;
}

void ConfigurationItem::setTargetPath(const QString &path)
{
    if (path == data.targetPath)
        return;
    state.change(nullptr, [&](QString *error) {
        BuildDescription changed = data;
        changed.targetPath = path;
        if (!state.document().builds().write(changed, error))
            return false;
        data = changed;
        return true;
    });
}

QString ConfigurationItem::absoluteTargetPath() const
{
    return pathOnDisk(actualItemPath(getTargetPath(), state.folder()), state.folder());
}

QStringList ConfigurationItem::stepNamesInOrder(int count) const
{
    QStringList names;
    for (const BuildStep &step : steps()) {
        if (names.size() == count)
            break;
        names.append(step.name);
    }
    return names;
}

QList<BuildStep> ConfigurationItem::steps() const
{
    return data.name == nameOfDefault() ? data.steps + stepsOfFiles() : data.steps;
}

QList<BuildStep> ConfigurationItem::stepsOfFiles() const
{
    const ComponentFiles &files = state.document().files();
    QList<BuildStep> steps;
    for (const FileId &file : files.filesWithBuildCommand()) {
        const FileBuildCommand build = files.buildCommand(file);
        const QString path = files.path(file);
        QStringList words {build.command, build.flags, path};
        words.removeAll(QString());
        BuildStep step;
        step.name = build.targetName.isEmpty() ? path : build.targetName;
        step.command = words.join(u' ');
        step.inputs = QStringList {path};
        if (!build.targetName.isEmpty())
            step.outputs = QStringList {build.targetName};
        steps.append(step);
    }
    return steps;
}

void ConfigurationItem::refresh() { lastRun = lastRun == Running ? Running : Idle; }

bool ConfigurationItem::run(bool, bool)
{
    logError(u"The build configuration \"%1\" cannot be run"_s.arg(data.name));
    lastRun = Failed;
    return false;
}

} // namespace MorvalenCore
