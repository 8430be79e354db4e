#include <MorvalenCore/DesignConstructor.h>

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/statuslog.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;

namespace MorvalenCore {

Status DesignConstructor::tryAssignPhysicalWorkingFolderToDesign(IDesign *design,
                                                                 const QString &path)
{
    if (!design)
        return Status::invalidArgument(u"There is no design to assign a working folder to"_s);
    if (!path.isEmpty())
        return design->tryAssignPhysicalWorkingFolderPath(path);
    const QString present = design->workingFolderPath();
    if (!present.isEmpty())
        return design->tryAssignPhysicalWorkingFolderPath(present);
    const QString designs = DesignManager::instance()->path(DesignManager::DesignsPath);
    return design->tryAssignPhysicalWorkingFolderPath(
        QDir::cleanPath(designs + u'/' + design->name()));
}

bool DesignConstructor::assignPhysicalWorkingFolderToDesign(
    IDesign *design, const QString &path, Interfaces::IDesignParser::DesignParserOptions, ITask *,
    bool)
{
    return Qtilities::Logging::logStatus(tryAssignPhysicalWorkingFolderToDesign(design, path));
}

} // namespace MorvalenCore
