#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QObject>
#include <QString>

namespace Qtilities::ProjectManagement {

class IProject;

// The application's single current project. One manager per process; what a project holds beyond
// its name and file is the concern of the one who implements IProjectItem for it.
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

    // The open project, or null; owned by the manager.
    virtual IProject *currentProject() const;

    // The name and the absolute file of the open project; empty when there is none, the file also
    // when the project was never saved.
    virtual QString currentProjectName() const;
    virtual QString currentProjectFileName() const;

    // The folder for projects that the user has set, or fallback when none is.
    virtual QString customProjectsPath(const QString &fallback) const;
    virtual void setCustomProjectsPath(const QString &path);

    // Each closes the project that was open, as closeProject does; if the new one cannot be
    // opened, the old one stays. False on failure, with the reason in the log.
    virtual bool newProject();
    virtual bool openProject(const QString &fileName);
    virtual bool closeProject();

    // Saves the open project, which has that file from then on.
    virtual bool saveProject(QString fileName, bool makeRelative);

Q_SIGNALS:
    void currentProjectChanged();
};

} // namespace Qtilities::ProjectManagement
