#include "build/BuildPlan.h"

#include "build/macros.h"
#include "build/shell.h"
#include "build/steporder.h"

#include <QDir>
#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

const QString nodePrefix = u"node:"_s;

bool isBelow(const QString &path, const QString &folder)
{
    return path.size() > folder.size() + 1 && path.startsWith(folder)
        && (folder.endsWith(u'/') || path[folder.size()] == u'/');
}

QString absolute(const QString &path, const QString &folder)
{
    return QDir::cleanPath(QDir::isAbsolutePath(path) ? path : folder + u'/' + path);
}

// Ninja's files have no way to write line breaks in a path, nor its log to write tabs.
bool holdsControl(const QString &path)
{
    return std::any_of(path.cbegin(), path.cend(), [](QChar c) { return c.unicode() < 0x20; });
}

// As a command that runs in the folder may name it.
QString asSeenFrom(const QString &folder, const QString &path)
{
    if (!isBelow(path, folder))
        return path;
    const QString relative = path.sliced(folder.endsWith(u'/') ? folder.size() : folder.size() + 1);
    return relative.startsWith(u'-') ? u"./"_s + relative : relative;
}

// Plans one step after the other.
class Planner
{
public:
    explicit Planner(const BuildRequest &asked) : request(asked)
    {
        plan.configuration = request.configuration;
        plan.workingFolder = request.workingFolder;
        plan.targetFolder = targetFolderOf(request.targetPath, request.workingFolder);
        for (const QString &name :
             {u"build.ninja"_s, u"build.log"_s, u".ninja_log"_s, u".ninja_deps"_s})
            buildFiles.append(plan.targetFolder + u'/' + name);
    }

    bool add(const BuildStep &step)
    {
        PlannedStep planned;
        planned.name = step.name;
        planned.label = uniqueLabel(step.name);
        scope.step = {{u"STEP"_s, step.name}};
        if (!addInputs(step, &planned) || !addOutputs(step, &planned)
            || !setCommand(step, &planned))
            return false;
        plan.steps.append(planned);
        return true;
    }

    BuildPlan plan;
    // Without the name of the step that it belongs to.
    QString error;

private:
    QString uniqueLabel(const QString &name)
    {
        QString label = name.simplified();
        label.removeIf([](QChar c) { return !c.isPrint() && !c.isSurrogate(); });
        if (label.isEmpty())
            label = u"step"_s;
        const QString first = label;
        for (int number = 2; labels.contains(label); ++number)
            label = first + u" (%1)"_s.arg(number);
        labels.insert(label);
        return label;
    }

    bool path(const QString &text, QString *result)
    {
        QString expanded = text;
        if (!expandMacros(&expanded, scope, &error))
            return false;
        if (expanded.isEmpty()) {
            error = u"A path is empty"_s;
            return false;
        }
        if (holdsControl(expanded)) {
            error = u"A path cannot hold tabs, line breaks or other control characters"_s;
            return false;
        }
        *result = absolute(expanded, request.workingFolder);
        return true;
    }

    bool addInputs(const BuildStep &step, PlannedStep *planned)
    {
        for (const QString &input : step.inputs) {
            if (input.startsWith(nodePrefix)) {
                const auto files = request.nodes.constFind(input.sliced(nodePrefix.size()));
                if (files == request.nodes.constEnd()) {
                    error = u"The design has no node \"%1\""_s.arg(input.sliced(nodePrefix.size()));
                    return false;
                }
                planned->inputs += *files;
                hasNode = true;
                continue;
            }
            QString absolutePath;
            if (!path(input, &absolutePath))
                return false;
            planned->inputs.append(absolutePath);
        }
        return true;
    }

    // What a step makes is no input of it, though it be in a node that it reads.
    bool addOutputs(const BuildStep &step, PlannedStep *planned)
    {
        for (const QString &output : step.outputs) {
            QString absolutePath;
            if (!path(output, &absolutePath))
                return false;
            if (!isBelow(absolutePath, plan.targetFolder)
                && !isBelow(absolutePath, plan.workingFolder)) {
                error = u"The output \"%1\" is neither below the target path \"%2\" nor below the "
                        u"working folder \"%3\""_s.arg(absolutePath, plan.targetFolder,
                                                       plan.workingFolder);
                return false;
            }
            if (buildFiles.contains(absolutePath)) {
                error = u"The output \"%1\" is a file of the build itself"_s.arg(absolutePath);
                return false;
            }
            planned->outputs.append(absolutePath);
        }
        if (hasNode) {
            for (const QString &output : std::as_const(planned->outputs))
                planned->inputs.removeAll(output);
        }
        hasNode = false;
        return true;
    }

    bool setCommand(const BuildStep &step, PlannedStep *planned)
    {
        QString command = step.command;
        if (command.trimmed().isEmpty()) {
            error = u"The command is empty"_s;
            return false;
        }
        if (command.contains(u"$("_s)) {
            scope.step.insert(u"INPUTS"_s, wordsFor(planned->inputs));
            scope.step.insert(u"OUTPUTS"_s, wordsFor(planned->outputs));
            if (!expandMacros(&command, scope, &error))
                return false;
        }
        if (command.contains(QChar(0))) {
            error = u"A command cannot hold a zero"_s;
            return false;
        }
        planned->command = inOneLine(launched(command, request.launcher));
        return true;
    }

    QString wordsFor(const QStringList &paths) const
    {
        QStringList seen;
        seen.reserve(paths.size());
        for (const QString &path : paths)
            seen.append(asSeenFrom(request.workingFolder, path));
        return shellWords(seen);
    }

    const BuildRequest &request;
    MacroScope scope {{}, &request.macros};
    QSet<QString> labels;
    QStringList buildFiles;
    bool hasNode = false;
};

} // namespace

QStringList nodesNamedIn(const QList<BuildStep> &steps)
{
    QStringList nodes;
    for (const BuildStep &step : steps) {
        for (const QString &input : step.inputs) {
            if (input.startsWith(nodePrefix) && !nodes.contains(input.sliced(nodePrefix.size())))
                nodes.append(input.sliced(nodePrefix.size()));
        }
    }
    return nodes;
}

QString targetFolderOf(const QString &targetPath, const QString &workingFolder)
{
    return absolute(targetPath, workingFolder);
}

std::optional<BuildPlan> makeBuildPlan(const BuildRequest &request, QString *error)
{
    Planner planner(request);
    for (const QString &folder : {planner.plan.workingFolder, planner.plan.targetFolder}) {
        if (holdsControl(folder)) {
            *error = u"The folder \"%1\" holds tabs, line breaks or other control characters"_s.arg(
                folder);
            return {};
        }
    }
    planner.plan.steps.reserve(request.steps.size());
    for (const BuildStep &step : request.steps) {
        if (!planner.add(step)) {
            *error = u"The step \"%1\" cannot be run: %2"_s.arg(step.name, planner.error);
            return {};
        }
    }
    if (!orderSteps(&planner.plan.steps, error))
        return {};
    return std::move(planner.plan);
}

} // namespace MorvalenCore
