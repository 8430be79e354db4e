#include "configurations/targetplaces.h"

#include "build/BuildPlan.h"
#include "build/NinjaFile.h"
#include "disk/itempaths.h"
#include "log/hostlog.h"
#include "session/sessionsettings.h"

#include <MorvalenCore/settingkeys.h>

#include <QDir>
#include <QFileInfo>
#include <QStringList>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// Where a path leads when the links on the way are followed; its end need not be there yet.
QString resolved(const QString &path)
{
    QString folder = path;
    while (!QFileInfo(folder).exists() && !QFileInfo(folder).isRoot())
        folder = QFileInfo(folder).path();
    return QDir::cleanPath(QFileInfo(folder).canonicalFilePath() + u'/' + path.mid(folder.size()));
}

bool isIn(const QString &folder, const QString &path)
{
    return path == folder || path.startsWith(folder.endsWith(u'/') ? folder : folder + u'/');
}

bool isAllowed(const QString &targetPath, const QString &place)
{
    for (const QString &allowed : readSettings(SettingKeys::targetFolders)) {
        if (allowed == targetPath || (allowed.startsWith(u'/') && isIn(resolved(allowed), place)))
            return true;
    }
    return false;
}

} // namespace

Status checkTargetPlace(const BuildPlan &plan, const QString &targetPath)
{
    const QString place = resolved(plan.targetFolder);
    if (isIn(resolved(plan.workingFolder), place) || isAllowed(targetPath, place)
        || NinjaFile::liesIn(plan.targetFolder))
        return {};
    return Status::invalidArgument(
        u"The target path \"%1\" leads out of the working folder, to \"%2\"; the setting "
        "target_folders of the group Builds can allow that"_s.arg(targetPath, place));
}

void allowTargetPath(const QString &targetPath, const QString &workingFolder)
{
    if (targetPath.isEmpty())
        return;
    const Result<QString> path =
        tryPathOnDisk(actualItemPath(targetPath, workingFolder), workingFolder);
    const bool isPath = path.isOk() && !path.value().isEmpty();
    if (isPath && isIn(resolved(workingFolder), resolved(path.value())))
        return;
    // One with a variable that is not set leads somewhere later.
    const QString allowed = isPath ? path.value() : targetPath;
    QStringList all = readSettings(SettingKeys::targetFolders);
    if (all.contains(allowed))
        return;
    all.append(allowed);
    if (!writeSettings(SettingKeys::targetFolders, all).isOk())
        logWarning(u"The settings file \"%1\" cannot be written"_s.arg(sessionSettingsFile()));
}

} // namespace MorvalenCore
