#pragma once

#include <Qtilities/IProject.h>
#include <Qtilities/IProjectItem.h>
#include <Qtilities/QtilitiesExport.h>
#include <Qtilities/Status.h>

#include <QObject>
#include <QString>

#include <memory>

namespace Qtilities::ProjectManagement {

class ProjectItems;

// The application's single current project. What it holds, beyond its name and file, is whatever
// the project items have open: that is written when the project is saved, opened when it is
// opened, and closed when it is closed. A project that has a file is saved there when it is
// closed; of one that was never saved only the list of its things is gone, and the log says so.
//
// One manager per process. What is wrong in a project file is said as FILE:LINE: reason.
class QTILITIES_EXPORT ProjectManager : public QObject
{
    Q_OBJECT

public:
    explicit ProjectManager(QObject *parent = nullptr);
    ~ProjectManager() override;

    // The manager: the one that was set, else one made on first use.
    static ProjectManager *instance();

    // Replaces the manager, which stays the caller's; null brings the default back.
    static void setInstance(ProjectManager *manager);

    // Makes a kind of thing part of every project. The item stays the caller's and must be
    // removed before it is destroyed; a second one for the same section is refused.
    virtual bool addProjectItem(IProjectItem *item);
    virtual void removeProjectItem(IProjectItem *item);

    // The open project, or null; owned by the manager.
    virtual IProject *currentProject() const;

    // The name and the absolute file of the open project; empty when there is none, the file also
    // when the project was never saved.
    virtual QString currentProjectName() const;
    virtual QString currentProjectFileName() const;

    // Whether the open project holds something else than its file, or anything at all when it was
    // never saved.
    virtual bool isCurrentProjectModified() const;

    // The folder for projects that the user has set, or fallback when none is. It is kept in the
    // session's settings; setting an empty one removes it.
    virtual QString customProjectsPath(const QString &fallback) const;
    virtual Core::Status trySetCustomProjectsPath(const QString &path);
    void setCustomProjectsPath(const QString &path);

    // Each closes the project that was open, as closeProject does; if the new one cannot be
    // opened, the old one stays. A relative file is of the process's folder. What is open without
    // a project stays open and belongs to the new one.
    virtual Core::Status tryNewProject();
    virtual Core::Status tryOpenProject(const QString &fileName);

    // A failure also when no project is open; the project stays open on failure.
    virtual Core::Status tryCloseProject();

    // Gives up what the open project holds beyond its file: closing it saves nothing.
    virtual void dropChanges();

    // Saves the open project, which has that file from then on, and the file's name unless it was
    // given another one. With makeRelative it holds paths relative to its own folder, so that it
    // can be moved together with what it holds. A file that is no project file is not replaced.
    virtual Core::Status trySaveProject(const QString &fileName, bool makeRelative);

    // The same for callers that can only take a bool: the reason of a failure goes to the log.
    virtual bool newProject();
    virtual bool openProject(const QString &fileName);
    virtual bool closeProject();
    virtual bool saveProject(QString fileName, bool makeRelative);

Q_SIGNALS:
    // Another project is open, or none, or the open one has another name or file.
    void currentProjectChanged();

private:
    class Project;

    Core::Status save(const QString &fileName, bool makeRelative);
    Core::Status saveChanges();
    void setCurrent(std::unique_ptr<Project> next);

    std::unique_ptr<ProjectItems> items;
    std::unique_ptr<Project> current;
};

} // namespace Qtilities::ProjectManagement
