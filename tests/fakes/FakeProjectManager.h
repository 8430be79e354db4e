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

    // For the window, which asks for the reason: the same calls.
    Qtilities::Core::Status tryNewProject() override { return outcome(newProject()); }
    Qtilities::Core::Status tryOpenProject(const QString &fileName) override
    {
        return outcome(openProject(fileName));
    }
    Qtilities::Core::Status tryCloseProject() override { return outcome(closeProject()); }
    Qtilities::Core::Status trySaveProject(const QString &fileName, bool makeRelative) override
    {
        return outcome(saveProject(fileName, makeRelative));
    }

    bool open = false;
    QString name;
    QString file;
    QString projectsPath;

private:
    static Qtilities::Core::Status outcome(bool done)
    {
        using Qtilities::Core::Status;
        return done ? Status() : Status::failed(QStringLiteral("The manager refuses it"));
    }

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
