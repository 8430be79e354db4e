#include <Qtilities/ProjectManager.h>
#include <Qtilities/Replaceable.h>

namespace Qtilities::ProjectManagement {

namespace {

Core::Replaceable<ProjectManager> &slot()
{
    static auto *const theSlot = new Core::Replaceable<ProjectManager>;
    return *theSlot;
}

} // namespace

ProjectManager::ProjectManager(QObject *parent) : QObject(parent) { }

ProjectManager::~ProjectManager() = default;

ProjectManager *ProjectManager::instance() { return slot().get(); }

void ProjectManager::setInstance(ProjectManager *manager) { slot().set(manager); }

IProject *ProjectManager::currentProject() const { return nullptr; }

QString ProjectManager::currentProjectName() const { return {}; }

QString ProjectManager::currentProjectFileName() const { return {}; }

QString ProjectManager::customProjectsPath(const QString &fallback) const { return fallback; }

void ProjectManager::setCustomProjectsPath(const QString &) { }

bool ProjectManager::newProject() { return false; }

bool ProjectManager::openProject(const QString &) { return false; }

bool ProjectManager::closeProject() { return false; }

bool ProjectManager::saveProject(QString, bool) { return false; }

} // namespace Qtilities::ProjectManagement
