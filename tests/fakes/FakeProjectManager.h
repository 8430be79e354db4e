#pragma once

#include "tests/fakes/Journal.h"

#include <Qtilities/ProjectManager.h>

// A project manager whose project is its public members.
class FakeProjectManager : public Qtilities::ProjectManagement::ProjectManager
{
public:
    explicit FakeProjectManager(Journal &theJournal) : journal(theJournal) { }

    // Only whether it is null may be looked at.
    Qtilities::ProjectManagement::IProject *currentProject() const override
    {
        auto *self = const_cast<FakeProjectManager *>(this);
        return open ? reinterpret_cast<Qtilities::ProjectManagement::IProject *>(self) : nullptr;
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
    Journal &journal;
};
