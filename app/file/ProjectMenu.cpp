#include "app/file/ProjectMenu.h"

#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/file/designsaving.h"
#include "app/file/filedialogs.h"
#include "app/file/opening.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::ProjectManagement::ProjectManager;

ProjectMenu::ProjectMenu(QWidget *theWindow) : QMenu(tr("&Project"), theWindow), window(theWindow)
{
    setObjectName(u"projectMenu"_s);
    connect(addAction(tr("&New Project")), &QAction::triggered, this, &ProjectMenu::create);
    connect(addAction(tr("&Open Project...")), &QAction::triggered, this, &ProjectMenu::open);
    addSeparator();
    saveAction = addAction(tr("&Save Project"));
    connect(saveAction, &QAction::triggered, this, [this] { designsaving::saveProject(window); });
    saveAsAction = addAction(tr("Save Project &As..."));
    connect(saveAsAction, &QAction::triggered, this,
            [this] { designsaving::saveProjectAs(window); });
    addSeparator();
    closeAction = addAction(tr("&Close Project"));
    connect(closeAction, &QAction::triggered, this, &ProjectMenu::close);
    connect(this, &QMenu::aboutToShow, this, &ProjectMenu::showState);
}

void ProjectMenu::showState()
{
    const ProjectManager *manager = ProjectManager::instance();
    const bool isOpen = manager->currentProject();
    const bool isFree = running::check().isOk();
    for (QAction *action : actions())
        action->setEnabled(isFree);
    // Designs without a project can be saved as one.
    const bool hasDesigns = isFree && !DesignManager::instance()->openDesignIds().isEmpty();
    saveAction->setEnabled(isOpen ? manager->currentProjectFileName().isEmpty()
                                   || manager->isCurrentProjectModified()
                                  : hasDesigns);
    saveAsAction->setEnabled(isOpen || hasDesigns);
    closeAction->setEnabled(isOpen && isFree);
}

void ProjectMenu::create()
{
    if (!opening::mayCloseProject(window))
        return;
    HostCall attempt(window, tr("Not Closed"));
    if (attempt.takeAndLog(ProjectManager::instance()->tryNewProject()))
        journaling::projectMade();
}

void ProjectMenu::open()
{
    const QString file = filedialogs::projectToOpen(window);
    if (!file.isEmpty())
        opening::open(window, {file});
}

void ProjectMenu::close()
{
    if (!opening::mayCloseProject(window))
        return;
    HostCall attempt(window, tr("Not Closed"));
    if (attempt.takeAndLog(ProjectManager::instance()->tryCloseProject()))
        journaling::projectClosed();
}
