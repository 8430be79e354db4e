#include "commands/commands.h"
#include "commands/conventions.h"
#include "commands/ExecBracket.h"
#include "commands/manuals.h"
#include "commands/Subcommand.h"

#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

using namespace Qt::Literals::StringLiterals;
using commands::Arguments;
using commands::ExecBracket;
using commands::Outcome;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

// What a step answers when the project manager did as asked, and when it did not.
struct Answers
{
    QStringView success;
    QStringView failure;
};

constexpr struct
{
    QStringView noProject = u"There is no project open at the moment";
    QStringView noProjectToClose =
        u"There is no project open at the moment, will not attempt to close it";
    QStringView noProjectToSave =
        u"There is no project open at the moment, will not attempt to save it";
    QStringView noFileName =
        u"The current project does not have a file name associated with it. Use \"project save "
        "path\" instead";
    Answers close = {.success = u"Successfully closed current project",
                     .failure = u"Failed to close current project"};
    Answers create = {.success = u"Successfully created new project",
                      .failure = u"Failed to create new project"};
    Answers open = {.success = u"Successfully opened project",
                    .failure = u"Failed to open project"};
    Answers save = {.success = u"Successfully saved open project",
                    .failure = u"Failed to save open project"};
    Answers saveAs = {.success = u"Successfully saved project",
                      .failure = u"Failed to save project"};
} texts;

constexpr commands::UsageRow usageRows[] = {
    {"close", "Close the current open project"},
    {"new", "Create a new project"},
    {"projects_path", "Returns the projects path of the application"},
    {"open path", "Open the project at \"path\""},
    {"save", "Save the current project"},
    {"save path", "Save the project to the file specified by \"path\""},
    {"name", "Returns the name of the open project"},
    {"path", "Returns the path of the open project"},
};

Outcome error(QStringView text) { return Outcome::error(text.toString()); }

bool isOpen() { return ProjectManager::instance()->currentProject() != nullptr; }

template <typename Operation>
Outcome change(const Answers &answers, const Operation &operation)
{
    bool done = false;
    {
        ExecBracket bracket;
        done = operation(*ProjectManager::instance());
    }
    return done ? Outcome::ok(answers.success.toString()) : error(answers.failure);
}

Outcome name(const Arguments &)
{
    return isOpen() ? Outcome::ok(ProjectManager::instance()->currentProjectName())
                    : error(texts.noProject);
}

Outcome path(const Arguments &)
{
    return isOpen() ? Outcome::ok(ProjectManager::instance()->currentProjectFileName())
                    : error(texts.noProject);
}

Outcome projectsPath(const Arguments &)
{
    const QString custom = ProjectManager::instance()->customProjectsPath(QString());
    if (!custom.isEmpty())
        return Outcome::ok(custom);
    const QString session = Qtilities::CoreGui::QtilitiesApplication::applicationSessionPath();
    return Outcome::ok(preparePath(session + "/Projects"_L1));
}

Outcome close(const Arguments &)
{
    if (!isOpen())
        return error(texts.noProjectToClose);
    return change(texts.close, [](ProjectManager &manager) { return manager.closeProject(); });
}

Outcome create(const Arguments &)
{
    return change(texts.create, [](ProjectManager &manager) { return manager.newProject(); });
}

Outcome open(const Arguments &arguments)
{
    return change(texts.open, [&arguments](ProjectManager &manager) {
        return manager.openProject(arguments[2]);
    });
}

Outcome saveTo(const QString &fileName, const Answers &answers)
{
    return change(answers, [&fileName](ProjectManager &manager) {
        return manager.saveProject(fileName, true);
    });
}

// Whether a project is open is looked at before the number of arguments is.
Outcome save(const Arguments &arguments)
{
    if (!isOpen())
        return error(texts.noProjectToSave);
    if (arguments.count() == 3)
        return saveTo(arguments[2], texts.saveAs);
    if (arguments.count() != 2)
        return Outcome::usage();
    const QString fileName = ProjectManager::instance()->currentProjectFileName();
    return fileName.isEmpty() ? error(texts.noFileName) : saveTo(fileName, texts.save);
}

constexpr commands::Subcommand<Arguments> subcommands[] = {
    {"name", commands::anyArguments, name},
    {"projects_path", commands::anyArguments, projectsPath},
    {"path", commands::anyArguments, path},
    {"close", commands::anyArguments, close},
    {"new", commands::anyArguments, create},
    {"open", commands::exactly(3), open},
    {"save", commands::anyArguments, save},
};

} // namespace

const commands::Manual commands::projectManual {usageRows,
                                                [] { return forms<Arguments>(subcommands); }};

int CallProject(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const Arguments &arguments) {
        return commands::dispatch<Arguments>(subcommands, arguments).withUsage([&arguments] {
            return commands::usageText(u"Usage: %1 args\n", {arguments[0]}, usageRows);
        });
    });
}
