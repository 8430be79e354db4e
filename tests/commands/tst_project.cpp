#include "tests/commands/CommandTest.h"
#include "tests/TestClass.h"

#include <Qtilities/QtilitiesApplication.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

const QByteArray usage = "Usage: project args\n"
                         "close           - Close the current open project\n"
                         "name            - Returns the name of the open project\n"
                         "new             - Create a new project\n"
                         "open path       - Open the project at \"path\"\n"
                         "path            - Returns the path of the open project\n"
                         "projects_path   - Returns the projects path of the application\n"
                         "save            - Save the current project\n"
                         "save path       - Save the project to the file specified by \"path\"\n";

} // namespace

class tst_project : public CommandTest
{
    Q_OBJECT

    static void open(FakeHost &host)
    {
        host.projects.open = true;
        host.projects.name = u"the \"project\" %1"_s;
        host.projects.file = u"/a\\b/p.prj"_s;
    }

    static void openUnsaved(FakeHost &host)
    {
        open(host);
        host.projects.file.clear();
    }

    // With an open project and a call that is to fail.
    static Setup failing(const char *call)
    {
        return [call](FakeHost &host) {
            open(host);
            host.journal.fail(QString::fromUtf8(call));
        };
    }

private Q_SLOTS:
    void dispatch_data()
    {
        const QByteArray none = "There is no project open at the moment";
        addRows({
            {"project-usage-1 alone", "project", TCL_ERROR, usage, ""},
            {"project-usage-2 an unknown word", "project delete", TCL_ERROR, usage, "", open},
            {"project-usage-3 words are case-sensitive", "project Name", TCL_ERROR, usage, "",
             open},
            {"project-name-1", "project name", TCL_OK, "the \"project\" %1", "", open},
            {"project-name-2 further words are ignored", "project name a b", TCL_OK,
             "the \"project\" %1", "", open},
            {"project-name-3 no project", "project name", TCL_ERROR, none, ""},
            {"project-path-1 as it is stored", "project path", TCL_OK, "/a\\b/p.prj", "", open},
            {"project-path-2 never saved", "project path x", TCL_OK, "", "", openUnsaved},
            {"project-path-3 no project", "project path", TCL_ERROR, none, ""},
            {"project-projects_path-1 the user's own, as it is", "project projects_path x", TCL_OK,
             "/my\\projects/", "",
             [](FakeHost &host) { host.projects.projectsPath = u"/my\\projects/"_s; }},
        });
    }
    void dispatch() { runRow(); }

    void projectsPathOfTheSession()
    {
        renewHost();
        QtilitiesApplication::setApplicationSessionPath(u"/the session"_s);
        const Answer answer = eval("project projects_path");
        QCOMPARE(answer.text, QDir::toNativeSeparators(u"/the session/Projects"_s));
        QCOMPARE(answer.code, TCL_OK);
    }

    void changes_data()
    {
        addRows({
            {"project-close-1", "project close", TCL_OK, "Successfully closed current project",
             "initExec\nprojects.closeProject()\nfinalizeExec", open},
            {"project-close-2 failure", "project close x y", TCL_ERROR,
             "Failed to close current project", "initExec\nprojects.closeProject()\nfinalizeExec",
             failing("projects.closeProject()")},
            {"project-close-3 no project", "project close", TCL_ERROR,
             "There is no project open at the moment, will not attempt to close it", ""},
            {"project-new-1", "project new", TCL_OK, "Successfully created new project",
             "initExec\nprojects.newProject()\nfinalizeExec"},
            {"project-new-2 failure", "project new x", TCL_ERROR, "Failed to create new project",
             "initExec\nprojects.newProject()\nfinalizeExec", failing("projects.newProject()")},
            {"project-open-1 the path as it is given", "project open {a\\b c.prj}", TCL_OK,
             "Successfully opened project",
             "initExec\nprojects.openProject(a\\b c.prj)\nfinalizeExec"},
            {"project-open-2 failure", "project open {}", TCL_ERROR, "Failed to open project",
             "initExec\nprojects.openProject()\nfinalizeExec", failing("projects.openProject()")},
            {"project-open-3 no path", "project open", TCL_ERROR, usage, ""},
            {"project-open-4 two paths", "project open a b", TCL_ERROR, usage, ""},
            {"project-save-1", "project save", TCL_OK, "Successfully saved open project",
             "initExec\nprojects.saveProject(/a\\b/p.prj, true)\nfinalizeExec", open},
            {"project-save-2 failure", "project save", TCL_ERROR, "Failed to save open project",
             "initExec\nprojects.saveProject(/a\\b/p.prj, true)\nfinalizeExec",
             failing("projects.saveProject(/a\\b/p.prj, true)")},
            {"project-save-3 never saved", "project save", TCL_ERROR,
             "The current project does not have a file name associated with it. Use \"project save "
             "path\" instead",
             "", openUnsaved},
            {"project-save-4 no project", "project save", TCL_ERROR,
             "There is no project open at the moment, will not attempt to save it", ""},
            {"project-save-5 to a path", "project save x.prj", TCL_OK, "Successfully saved project",
             "initExec\nprojects.saveProject(x.prj, true)\nfinalizeExec", openUnsaved},
            {"project-save-6 to a path, failure", "project save x.prj", TCL_ERROR,
             "Failed to save project", "initExec\nprojects.saveProject(x.prj, true)\nfinalizeExec",
             failing("projects.saveProject(x.prj, true)")},
            {"project-save-7 an empty path is a path", "project save {}", TCL_OK,
             "Successfully saved project", "initExec\nprojects.saveProject(, true)\nfinalizeExec",
             open},
            {"project-save-8 too many words", "project save a b", TCL_ERROR, usage, "", open},
            {"project-save-9 no project comes before too many words", "project save a b", TCL_ERROR,
             "There is no project open at the moment, will not attempt to save it", ""},
        });
    }
    void changes() { runRow(); }
};

TEST_CLASS(tst_project)
#include "tst_project.moc"
