#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/Replaceable.h>
#include <Qtilities/SettingsFile.h>
#include <Qtilities/statuslog.h>

#include "ProjectItems.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace Qtilities::ProjectManagement {

namespace {

using namespace Qt::Literals::StringLiterals;
using Core::Result;
using Core::Status;
using CoreGui::QtilitiesApplication;
using Logging::logStatus;

const QLatin1StringView customPathKey = "Projects/custom_path"_L1;

Core::Replaceable<ProjectManager> &slot()
{
    static auto *const theSlot = new Core::Replaceable<ProjectManager>;
    return *theSlot;
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
    const Core::SettingsFile settings;
    logStatus(settings.status());
    const QString path = settings.value(customPathKey).toString();
    return path.isEmpty() ? fallback : path;
}

Status ProjectManager::trySetCustomProjectsPath(const QString &path)
{
    Core::SettingsFile settings;
    if (!settings.status().isOk())
        return settings.status();
    settings.set(customPathKey, path.isEmpty() ? QVariant() : QVariant(path));
    return settings.write().after(settings.status());
}

void ProjectManager::setCustomProjectsPath(const QString &path)
{
    logStatus(trySetCustomProjectsPath(path));
}

Status ProjectManager::tryNewProject()
{
    const Status closed = current ? tryCloseProject() : Status();
    if (closed.isOk())
        setCurrent(std::make_unique<Project>());
    return closed;
}

Status ProjectManager::tryCloseProject()
{
    if (!current)
        return Status::notFound(u"There is no project to close"_s);
    const bool listIsLost = current->file.isEmpty() && isCurrentProjectModified();
    const QString name = current->name;
    if (const Status saved = saveChanges(); !saved.isOk())
        return saved;
    Status closed = items->closeAll();
    if (!closed.isOk())
        return closed;
    setCurrent(nullptr);
    if (listIsLost)
        closed.addWarning(
            u"The project \"%1\" was never saved; what it held is closed"_s.arg(name));
    return closed;
}

Status ProjectManager::tryOpenProject(const QString &fileName)
{
    if (fileName.isEmpty())
        return Status::invalidArgument(u"The project to open has no file name"_s);
    const QString path = QDir::cleanPath(QFileInfo(fileName).absoluteFilePath());
    // First the open project's changes, since it may be the one that is read.
    if (const Status saved = current ? saveChanges() : Status(); !saved.isOk())
        return saved;
    const Result<ProjectContent> read = readProjectFile(path);
    if (!read.isOk())
        return read.status();
    const ProjectContent &content = read.value();
    if (const Status checked = items->check(content, path); !checked.isOk())
        return checked;
    const QList<ProjectSection> before = items->sections();
    const Status closed = current ? items->closeAll() : Status();
    if (!closed.isOk())
        return closed;
    Status status = items->open(content.sections, path);
    if (!status.isOk()) {
        status.addStep(items->reopen(before));
        return status.after(closed);
    }
    auto opened = std::make_unique<Project>();
    opened->name = content.name;
    opened->file = path;
    opened->saved = {content.name, onlyEntriesOf(content, items->sections())};
    setCurrent(std::move(opened));
    return status.after(closed);
}

void ProjectManager::dropChanges()
{
    if (current && !current->file.isEmpty())
        current->saved = {current->name, items->sections()};
}

Status ProjectManager::trySaveProject(const QString &fileName, bool makeRelative)
{
    if (!current)
        return Status::notFound(u"There is no project to save"_s);
    if (fileName.isEmpty()) {
        return Status::invalidArgument(
            u"The project \"%1\" has no file to be saved to"_s.arg(current->name));
    }
    const Status saved =
        save(QDir::cleanPath(QFileInfo(fileName).absoluteFilePath()), makeRelative);
    if (saved.isOk())
        Q_EMIT currentProjectChanged();
    return saved;
}

bool ProjectManager::newProject() { return logStatus(tryNewProject()); }

bool ProjectManager::openProject(const QString &fileName)
{
    return logStatus(tryOpenProject(fileName));
}

bool ProjectManager::closeProject() { return logStatus(tryCloseProject()); }

bool ProjectManager::saveProject(QString fileName, bool makeRelative)
{
    return logStatus(trySaveProject(fileName, makeRelative));
}

Status ProjectManager::save(const QString &fileName, bool makeRelative)
{
    // A name that came from the file follows it.
    const bool follows = current->name == nameFor(current->file);
    const ProjectContent content {follows ? nameFor(fileName) : current->name, items->sections()};
    const Status written = writeProjectFile(fileName, content, makeRelative);
    if (!written.isOk())
        return written;
    current->name = content.name;
    current->file = fileName;
    current->relative = makeRelative;
    current->saved = content;
    return written;
}

Status ProjectManager::saveChanges()
{
    return current->file.isEmpty() || !isCurrentProjectModified()
        ? Status()
        : save(current->file, current->relative);
}

} // namespace Qtilities::ProjectManagement
