#include "app/file/filedialogs.h"

#include <MorvalenCore/DesignManager.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

#include <QCoreApplication>
#include <QFileDialog>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ProjectManagement::ProjectManager;

namespace filedialogs {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(filedialogs)
};

QString projectsFolder()
{
    return ProjectManager::instance()->customProjectsPath(
        QtilitiesApplication::applicationSessionPath() + u"/Projects"_s);
}

QString projectFilter() { return Texts::tr("Projects (*.xml);;All files (*)"); }

} // namespace

QStringList filesToOpen(QWidget *parent)
{
    return QFileDialog::getOpenFileNames(
        parent, Texts::tr("Open Designs, Projects and Texts"),
        DesignManager::instance()->path(DesignManager::DesignsPath),
        Texts::tr("All files (*);;Component and project files (*.xml)"));
}

QString projectToOpen(QWidget *parent)
{
    return QFileDialog::getOpenFileName(parent, Texts::tr("Open Project"), projectsFolder(),
                                        projectFilter());
}

QString projectToSave(QWidget *parent)
{
    const ProjectManager *manager = ProjectManager::instance();
    const QString shown = manager->currentProjectFileName();
    QFileDialog dialog(parent, Texts::tr("Save Project As"), projectsFolder(), projectFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(u"xml"_s);
    dialog.selectFile(shown.isEmpty()
                          ? projectsFolder() + u'/' + manager->currentProjectName() + u".xml"_s
                          : shown);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace filedialogs
