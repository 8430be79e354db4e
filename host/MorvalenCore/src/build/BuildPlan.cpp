#include "build/BuildPlan.h"

#include "build/buildpaths.h"
#include "build/macros.h"
#include "build/OutputRecord.h"
#include "build/shell.h"
#include "build/steporder.h"

#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

const QString nodePrefix = u"node:"_s;

// Ninja's files have no way to write line breaks in a path, nor its log to write tabs.
bool holdsControl(const QString &path)
{
    return std::any_of(path.cbegin(), path.cend(), [](QChar c) { return c.unicode() < 0x20; });
}

// As a command that runs in the folder may name it.
QString asSeenFrom(const QString &folder, const QString &path)
{
    const QString relative = pathSeenFrom(folder, path);
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
             {u"build.ninja"_s, u"steps.ninja"_s, u"joint.ninja"_s, u"build.log"_s, u".ninja_log"_s,
              u".ninja_deps"_s, OutputRecord::fileName()})
            buildFiles.append(plan.targetFolder + u'/' + name);
    }

    // A failure does not say to which step it belongs.
    Status add(const BuildStep &step)
    {
        PlannedStep planned;
        planned.name = step.name;
        planned.label = uniqueLabel(step.name);
        scope.step = {{u"STEP"_s, step.name}};
        Status status = addInputs(step, &planned);
        if (status.isOk())
            status = addOutputs(step, &planned);
        if (status.isOk())
            status = setPool(step, &planned);
        if (status.isOk())
            status = setCommand(step, &planned);
        if (status.isOk())
            plan.steps.append(planned);
        return status;
    }

    BuildPlan plan;

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

    Result<QString> pathOf(const QString &text) const
    {
        const Result<QString> expanded = expandMacros(text, scope);
        if (!expanded.isOk())
            return expanded;
        if (expanded.value().isEmpty())
            return Status::invalidArgument(u"A path is empty"_s);
        if (holdsControl(expanded.value()))
            return Status::invalidArgument(
                u"A path cannot hold tabs, line breaks or other control characters"_s);
        return absolutePath(expanded.value(), request.workingFolder);
    }

    Status addInputs(const BuildStep &step, PlannedStep *planned)
    {
        for (const QString &input : step.inputs) {
            if (input.startsWith(nodePrefix)) {
                const QString node = input.sliced(nodePrefix.size());
                const auto files = request.nodes.constFind(node);
                if (files == request.nodes.constEnd())
                    return Status::notFound(u"The design has no node \"%1\""_s.arg(node));
                planned->inputs += *files;
                hasNode = true;
                continue;
            }
            const Result<QString> path = pathOf(input);
            if (!path.isOk())
                return path.status();
            planned->inputs.append(path.value());
        }
        return {};
    }

    // What a step makes is no input of it, though it be in a node that it reads.
    Status addOutputs(const BuildStep &step, PlannedStep *planned)
    {
        for (const QString &output : step.outputs) {
            const Result<QString> path = pathOf(output);
            const Status status = path.isOk() ? checkOutput(path.value()) : path.status();
            if (!status.isOk())
                return status;
            planned->outputs.append(path.value());
        }
        if (hasNode) {
            for (const QString &output : std::as_const(planned->outputs))
                planned->inputs.removeAll(output);
        }
        hasNode = false;
        return {};
    }

    Status checkOutput(const QString &path) const
    {
        if (!isBelow(path, plan.targetFolder) && !isBelow(path, plan.workingFolder))
            return Status::invalidArgument(
                u"The output \"%1\" is neither below the target path \"%2\" nor below the "
                u"working folder \"%3\""_s.arg(path, plan.targetFolder, plan.workingFolder));
        if (buildFiles.contains(path))
            return Status::invalidArgument(
                u"The output \"%1\" is a file of the build itself"_s.arg(path));
        return {};
    }

    Status setPool(const BuildStep &step, PlannedStep *planned)
    {
        planned->pool = step.pool;
        if (step.pool.isEmpty())
            return {};
        const auto pool = request.pools.constFind(step.pool);
        if (pool == request.pools.constEnd())
            return Status::notFound(u"The settings have no pool \"%1\""_s.arg(step.pool));
        plan.pools.insert(step.pool, *pool);
        return {};
    }

    Status setCommand(const BuildStep &step, PlannedStep *planned)
    {
        QString command = step.command;
        if (command.trimmed().isEmpty())
            return Status::invalidArgument(u"The command is empty"_s);
        if (command.contains(u"$("_s)) {
            scope.step.insert(u"INPUTS"_s, argumentsFor(planned->inputs));
            scope.step.insert(u"OUTPUTS"_s, argumentsFor(planned->outputs));
            const Result<QString> expanded = expandMacros(command, scope);
            if (!expanded.isOk())
                return expanded.status();
            command = expanded.value();
        }
        if (command.contains(QChar(0)))
            return Status::invalidArgument(u"A command cannot hold a zero"_s);
        planned->command = inOneLine(launched(command, request.launcher));
        return {};
    }

    QString argumentsFor(const QStringList &paths) const
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
    return absolutePath(targetPath, workingFolder);
}

Result<BuildPlan> makeBuildPlan(const BuildRequest &request)
{
    Planner planner(request);
    for (const QString &folder : {planner.plan.workingFolder, planner.plan.targetFolder}) {
        if (holdsControl(folder))
            return Status::invalidArgument(
                u"The folder \"%1\" holds tabs, line breaks or other control characters"_s.arg(
                    folder));
    }
    planner.plan.steps.reserve(request.steps.size());
    for (const BuildStep &step : request.steps) {
        const Status added = planner.add(step);
        if (!added.isOk())
            return added.withText(
                u"The step \"%1\" cannot be run: %2"_s.arg(step.name, added.text()));
    }
    const Status ordered = orderSteps(&planner.plan.steps);
    if (!ordered.isOk())
        return ordered;
    return std::move(planner.plan);
}

} // namespace MorvalenCore
