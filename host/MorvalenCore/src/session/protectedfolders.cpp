#include "session/protectedfolders.h"

#include "session/sessionsettings.h"

#include <MorvalenCore/DesignManager.h>

#include <Qtilities/ProjectManager.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::ProjectManagement::ProjectManager;

namespace MorvalenCore {

QStringList protectedFolders(const Interfaces::IDesign *except)
{
    QStringList folders;
    for (const QString &name :
         {u""_s, u"Scripts"_s, u"Projects"_s, u"Designs"_s, u"Backups"_s, u"Logs"_s})
        folders.append(sessionFolder(name));
    folders.append(ProjectManager::instance()->customProjectsPath({}));

    const DesignManager *manager = DesignManager::instance();
    folders.append(manager->path(DesignManager::DesignsPath));
    folders.append(manager->path(DesignManager::BackupsPath));
    for (const QString &id : manager->openDesignIds()) {
        const Interfaces::IDesign *design = manager->design(id);
        if (design && design != except)
            folders << design->workingFolderPath() << design->componentFileName();
    }
    folders.removeAll(QString());
    return folders;
}

} // namespace MorvalenCore
