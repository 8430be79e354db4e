#include <Qtilities/Logger.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/Replaceable.h>

#include "ProjectItems.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QSettings>

namespace Qtilities::ProjectManagement {

namespace {

using namespace Qt::Literals::StringLiterals;
using CoreGui::QtilitiesApplication;
using Logging::Logger;

const QLatin1StringView customPathKey = "Projects/custom_path"_L1;

Core::Replaceable<ProjectManager> &slot()
{
    static auto *const theSlot = new Core::Replaceable<ProjectManager>;
    return *theSlot;
}

// Logs the reason of a failure; the answer is always false.
bool failed(const QString &reason)
{
    Logger::instance()->logMessage(QString(), Logger::Error, reason);
    return false;
}

QString nameWithoutFile() { return ProjectManager::tr("New Project"); }

QString nameFor(const QString &fileName)
{
    return fileName.isEmpty() ? nameWithoutFile() : QFileInfo(fileName).completeBaseName();
}

bool holdsAnything(const QList<ProjectSection> &sections)
{
    return std::any_of(sections.cbegin(), sections.cend(),
                       [](const ProjectSection &section) { return !section.entries.isEmpty(); });
}

// The sections without what the content does not hold, as when it was open before.
QList<ProjectSection> onlyEntriesOf(const ProjectContent &content, QList<ProjectSection> sections)
{
    QSet<QString> held;
    for (const ProjectSection &section : content.sections) {
        for (const ProjectEntry &entry : section.entries)
            held.insert(section.name + u'\n' + entry.path);
    }
    for (ProjectSection &section : sections) {
        section.entries.removeIf([&](const ProjectEntry &entry) {
            return !held.contains(section.name + u'\n' + entry.path);
        });
    }
    return sections;
}

} // namespace

class ProjectManager::Project : public IProject
{
public:
    QString projectName() const override { return name; }
    QString projectFileName() const override { return file; }

    QString name = nameWithoutFile();
    QString file;
    bool relative = true;
    // What its file holds.
    ProjectContent saved;
};

ProjectManager::ProjectManager(QObject *parent)
    : QObject(parent),
      items(std::make_unique<ProjectItems>())
{
}

ProjectManager::~ProjectManager() = default;

ProjectManager *ProjectManager::instance() { return slot().get(); }

void ProjectManager::setInstance(ProjectManager *manager) { slot().set(manager); }

bool ProjectManager::addProjectItem(IProjectItem *item) { return items->add(item); }

void ProjectManager::removeProjectItem(IProjectItem *item) { items->remove(item); }

IProject *ProjectManager::currentProject() const { return current.get(); }

QString ProjectManager::currentProjectName() const { return current ? current->name : QString(); }

QString ProjectManager::currentProjectFileName() const
{
    return current ? current->file : QString();
}

bool ProjectManager::isCurrentProjectModified() const
{
    if (!current)
        return false;
    const QList<ProjectSection> held = items->sections();
    return current->file.isEmpty() ? holdsAnything(held)
                                   : ProjectContent {current->name, held} != current->saved;
}

void ProjectManager::setCurrent(std::unique_ptr<Project> next)
{
    current = std::move(next);
    Q_EMIT currentProjectChanged();
}

QString ProjectManager::customProjectsPath(const QString &fallback) const
{
    const QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    const QString path = settings.value(customPathKey).toString();
    return path.isEmpty() ? fallback : path;
}

void ProjectManager::setCustomProjectsPath(const QString &path)
{
    QSettings settings(QtilitiesApplication::settingsFileName(), QSettings::IniFormat);
    if (path.isEmpty())
        settings.remove(customPathKey);
    else
        settings.setValue(customPathKey, path);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        failed(u"Cannot write the settings \"%1\""_s.arg(settings.fileName()));
}

bool ProjectManager::newProject()
{
    if (current && !closeProject())
        return false;
    setCurrent(std::make_unique<Project>());
    return true;
}

bool ProjectManager::closeProject()
{
    QString error;
    if (!current)
        return failed(u"There is no project to close"_s);
    const bool listIsLost = current->file.isEmpty() && isCurrentProjectModified();
    const QString name = current->name;
    if (!saveChanges(&error) || !items->closeAll(&error))
        return failed(error);
    setCurrent(nullptr);
    if (listIsLost) {
        Logger::instance()->logMessage(
            QString(), Logger::Warning,
            u"The project \"%1\" was never saved; what it held is closed"_s.arg(name));
    }
    return true;
}

bool ProjectManager::openProject(const QString &fileName)
{
    QString error;
    if (fileName.isEmpty())
        return failed(u"The project to open has no file name"_s);
    const QString path = QDir::cleanPath(QFileInfo(fileName).absoluteFilePath());
    ProjectContent content;
    // First the open project's changes, since it may be the one that is read.
    if ((current && !saveChanges(&error)) || !readProjectFile(path, &content, &error)
        || !items->check(content, path, &error))
        return failed(error);
    const QList<ProjectSection> before = items->sections();
    if (current && !items->closeAll(&error))
        return failed(error);
    if (!items->open(content.sections, path, &error)) {
        items->reopen(before);
        return failed(error);
    }
    auto opened = std::make_unique<Project>();
    opened->name = content.name;
    opened->file = path;
    opened->saved = {content.name, onlyEntriesOf(content, items->sections())};
    setCurrent(std::move(opened));
    return true;
}

bool ProjectManager::saveProject(QString fileName, bool makeRelative)
{
    QString error;
    if (!current)
        return failed(u"There is no project to save"_s);
    if (fileName.isEmpty())
        return failed(u"The project \"%1\" has no file to be saved to"_s.arg(current->name));
    fileName = QDir::cleanPath(QFileInfo(fileName).absoluteFilePath());
    if (!save(fileName, makeRelative, &error))
        return failed(error);
    Q_EMIT currentProjectChanged();
    return true;
}

bool ProjectManager::save(const QString &fileName, bool makeRelative, QString *error)
{
    // A name that came from the file follows it.
    const bool follows = current->name == nameFor(current->file);
    const ProjectContent content {follows ? nameFor(fileName) : current->name, items->sections()};
    if (!writeProjectFile(fileName, content, makeRelative, error))
        return false;
    current->name = content.name;
    current->file = fileName;
    current->relative = makeRelative;
    current->saved = content;
    return true;
}

bool ProjectManager::saveChanges(QString *error)
{
    return current->file.isEmpty() || !isCurrentProjectModified()
        || save(current->file, current->relative, error);
}

} // namespace Qtilities::ProjectManagement
