#pragma once

#include "tests/fakes/Journal.h"

#include <Qtilities/IProject.h>
#include <Qtilities/ProjectManager.h>

// A project manager whose project is its public members.
class FakeProjectManager : public Qtilities::ProjectManagement::ProjectManager
{
public:
    explicit FakeProjectManager(Journal &theJournal) : journal(theJournal) { }

    Qtilities::ProjectManagement::IProject *currentProject() const override
    {
        return open ? &project : nullptr;
    }
    QString currentProjectName() const override { return name; }
    QString currentProjectFileName() const override { return file; }
    QString customProjectsPath(const QString &fallback) const override
    {
        return projectsPath.isEmpty() ? fallback : projectsPath;
    }
    bool newProject() override { return journal.perform(callText("projects.newProject")); }
    bool openProject(const QString &fileName) override
    {
        return journal.perform(callText("projects.openProject", {fileName}));
    }
    bool closeProject() override { return journal.perform(callText("projects.closeProject")); }
    bool saveProject(QString fileName, bool makeRelative) override
    {
        return journal.perform(
            callText("projects.saveProject", {fileName, callWord(makeRelative)}));
    }

    bool open = false;
    QString name;
    QString file;
    QString projectsPath;

private:
    // The manager's project as others see it.
    class Project : public Qtilities::ProjectManagement::IProject
    {
    public:
        explicit Project(const FakeProjectManager &theManager) : manager(theManager) { }

        QString projectName() const override { return manager.name; }
        QString projectFileName() const override { return manager.file; }

    private:
        const FakeProjectManager &manager;
    };

    Journal &journal;
    mutable Project project {*this};
};
