#include "ensemble/configurations.h"

#include "ensemble/steps.h"

#include <MorvalenCore/ConfigurationTemplate.h>

#include <QDir>
#include <QHash>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildStep;

namespace ensemble {

namespace {

Result<BuildConfiguration *> find(const IDesign &design, const QString &name)
{
    if (BuildConfiguration *configuration = design.buildConfiguration(name))
        return configuration;
    return Status::notFound(
        u"The design \"%1\" has no build configuration \"%2\""_s.arg(design.name(), name));
}

Answer change(BuildConfiguration &configuration, const BuildDescription &description)
{
    return Answer::of(configuration.trySetDescription(description));
}

Answer list(const Call &call)
{
    return onDesign(
        call, [](const IDesign &design) { return Value::list(design.buildConfigurationNames()); });
}

// What the call's template makes of the design; without one, an empty description.
Result<BuildDescription> patternOf(const Call &call, const IDesign &design)
{
    const auto name = call.text("-template");
    if (!name)
        return BuildDescription();
    const auto found = MorvalenCore::ConfigurationTemplate::find(*name);
    return found.isOk() ? found.value().configuration(design) : found.status();
}

Answer add(const Call &call)
{
    return changeDesign(call, [&call](IDesign &design) {
        const QString name = call.argument(0);
        if (design.buildConfiguration(name))
            return Answer::failure(
                kind::exists,
                u"The design \"%1\" has a build configuration \"%2\" already"_s.arg(design.name(),
                                                                                    name));
        const Result<BuildDescription> made = patternOf(call, design);
        if (!made.isOk())
            return Answer::of(made.status());
        const auto added = design.tryAddBuildConfiguration(name);
        if (!added.isOk())
            return Answer::of(added.status());
        BuildDescription pattern = made.value();
        pattern.name = name;
        pattern.targetPath = call.text("-target").value_or(pattern.targetPath);
        const Answer changed = change(*added.value(), pattern);
        if (changed.isFailure())
            (void)design.tryRemoveBuildConfiguration(name);
        return changed.isFailure() ? changed : Answer(name);
    });
}

Answer remove(const Call &call)
{
    return changeDesign(call, [&call](IDesign &design) {
        const Status found = find(design, call.argument(0)).status();
        return Answer::of(found.isOk() ? design.tryRemoveBuildConfiguration(call.argument(0))
                                       : found);
    });
}

Answer rename(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        description.name = call.argument(1);
        return Answer();
    });
}

// The texts of a list of pairs.
Result<QStringList> pairsOf(const Value &value, const QString &option)
{
    const Result<QStringList> texts = value.toList();
    if (texts.isOk() && texts.value().size() % 2 == 0)
        return texts;
    return Status::invalidArgument(u"the value of %1 is no dictionary: %2"_s.arg(
        option,
        texts.isOk() ? u"a value is missing behind \"%1\""_s.arg(texts.value().last())
                     : texts.status().text()));
}

// A step as "step get" gives it.
Result<ListedStep> stepOf(const QString &text)
{
    static const QHash<QString, QString BuildStep::*> texts {{u"name"_s, &BuildStep::name},
                                                             {u"command"_s, &BuildStep::command},
                                                             {u"pool"_s, &BuildStep::pool}};
    static const QHash<QString, QStringList BuildStep::*> lists {
        {u"inputs"_s, &BuildStep::inputs}, {u"outputs"_s, &BuildStep::outputs}};
    const Result<QStringList> pairs = pairsOf(Value(text), u"-steps"_s);
    if (!pairs.isOk())
        return pairs.status();
    ListedStep listed;
    for (qsizetype i = 0; i < pairs.value().size(); i += 2) {
        const QString &key = pairs.value()[i];
        const QString &value = pairs.value()[i + 1];
        if (texts.contains(key)) {
            listed.step.*texts[key] = value;
        } else if (lists.contains(key)) {
            const Result<QStringList> paths = Value(value).toList();
            if (!paths.isOk())
                return Status::invalidArgument(
                    u"the value of -steps is no list of steps: %1"_s.arg(paths.status().text()));
            listed.step.*lists[key] = paths.value();
        } else if (key == u"of_file") {
            listed.isOfFile = value == u"true";
        } else {
            return Status::invalidArgument(
                u"a step of -steps has no \"%1\": name, command, inputs, outputs, pool or "
                "of_file"_s.arg(key));
        }
    }
    return listed;
}

// Each takes over what the call says, all macros or all steps.
Status takeMacros(const Call &call, QList<MorvalenCore::BuildMacro> *macros)
{
    const auto given = call.value("-macros");
    if (!given)
        return {};
    const Result<QStringList> texts = pairsOf(*given, u"-macros"_s);
    if (!texts.isOk())
        return texts.status();
    macros->clear();
    for (qsizetype i = 0; i < texts.value().size(); i += 2)
        macros->append({texts.value()[i], texts.value()[i + 1]});
    return {};
}

Status takeSteps(const Call &call, QList<BuildStep> *steps)
{
    const auto given = call.value("-steps");
    if (!given)
        return {};
    const Result<QStringList> texts = given->toList();
    if (!texts.isOk())
        return Status::invalidArgument(
            u"the value of -steps is no list: %1"_s.arg(texts.status().text()));
    steps->clear();
    for (const QString &text : texts.value()) {
        const Result<ListedStep> listed = stepOf(text);
        if (!listed.isOk())
            return listed.status();
        // Those of files come by themselves.
        if (!listed.value().isOfFile)
            steps->append(listed.value().step);
    }
    return {};
}

Answer set(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        description.name = call.text("-name").value_or(description.name);
        description.targetPath = call.text("-target").value_or(description.targetPath);
        const Status macros = takeMacros(call, &description.macros);
        return Answer::of(macros.isOk() ? takeSteps(call, &description.steps) : macros);
    });
}

Value macrosOf(const BuildDescription &description)
{
    Value macros = Value::dictionary();
    for (const MorvalenCore::BuildMacro &macro : description.macros)
        macros.set(macro.name, macro.value);
    return macros;
}

Answer get(const Call &call)
{
    return onDesign(call, [&call](const IDesign &design) {
        const auto found = find(design, call.argument(0));
        if (!found.isOk())
            return Answer::of(found.status());
        const BuildConfiguration *configuration = found.value();
        const BuildDescription description = configuration->description();
        Value steps = Value::list();
        for (const ListedStep &step : stepsOf(*configuration))
            steps.append(dictionaryOf(step));
        return Answer(
            Value::dictionary()
                .set(u"name"_s, configuration->configurationName())
                .set(u"target"_s, QDir::toNativeSeparators(configuration->getTargetPath()))
                .set(u"active"_s, Value::truth(configuration == design.activeBuildConfiguration()))
                .set(u"state"_s, BuildConfiguration::runStateToString(configuration->runState()))
                .set(u"macros"_s, macrosOf(description))
                .set(u"steps"_s, steps));
    });
}

constexpr Option designOnly[] = {designOption};
constexpr Option addOptions[] = {{"-target", "PATH"}, {"-template", "TEMPLATE"}, designOption};
constexpr Option setOptions[] = {{"-name", "NEW_NAME"},
                                 {"-target", "PATH"},
                                 {"-macros", "DICTIONARY"},
                                 {"-steps", "LIST"},
                                 designOption};

constexpr Row rows[] = {
    {.word = "list",
     .options = designOnly,
     .does = "the names of the build configurations",
     .step = list},
    {.word = "add",
     .arguments = "NAME",
     .options = addOptions,
     .does = "adds a build configuration, an empty one or one from a template",
     .step = add},
    {.word = "remove",
     .arguments = "NAME",
     .options = designOnly,
     .does = "removes a build configuration; what builds have made stays on disk",
     .step = remove},
    {.word = "rename",
     .arguments = "NAME NEW_NAME",
     .options = designOnly,
     .does = "gives a build configuration another name",
     .step = rename},
    {.word = "set",
     .arguments = "NAME",
     .options = setOptions,
     .does = "changes what is given: the name, the target path (an empty one is the default), "
             "all macros, all steps",
     .step = set},
    {.word = "get",
     .arguments = "NAME",
     .options = designOnly,
     .does = "a dictionary of all there is to a build configuration",
     .step = get},
};

} // namespace

constinit const Rows configurationRows = rows;

Answer onConfiguration(const Call &call,
                       const std::function<Answer(const BuildConfiguration &)> &step)
{
    return onDesign(call, [&](const IDesign &design) {
        const auto found = find(design, call.argument(0));
        return found.isOk() ? step(*found.value()) : Answer::of(found.status());
    });
}

Answer changeConfiguration(const Call &call, const std::function<Answer(BuildDescription &)> &step)
{
    return changeDesign(call, [&](const IDesign &design) {
        const auto found = find(design, call.argument(0));
        if (!found.isOk())
            return Answer::of(found.status());
        BuildDescription description = found.value()->description();
        const Answer answer = step(description);
        return answer.isFailure() ? answer : change(*found.value(), description);
    });
}

} // namespace ensemble
