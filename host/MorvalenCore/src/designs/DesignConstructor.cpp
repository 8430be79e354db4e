#include <MorvalenCore/DesignConstructor.h>

#include "log/hostlog.h"

#include <MorvalenCore/DesignManager.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

namespace MorvalenCore {

bool DesignConstructor::assignPhysicalWorkingFolderToDesign(
    IDesign *design, const QString &path, Interfaces::IDesignParser::DesignParserOptions, ITask *,
    bool)
{
    if (!design) {
        logError(u"There is no design to assign a working folder to"_s);
        return false;
    }
    if (!path.isEmpty())
        return design->assignPhysicalWorkingFolderPath(path);
    const QString present = design->workingFolderPath();
    if (!present.isEmpty())
        return design->assignPhysicalWorkingFolderPath(present);
    const QString designs = DesignManager::instance()->path(DesignManager::DesignsPath);
    return design->assignPhysicalWorkingFolderPath(
        QDir::cleanPath(designs + u'/' + design->name()));
}

} // namespace MorvalenCore
