#include "ensemble/configurations.h"

#include "ensemble/steps.h"

#include <MorvalenCore/ConfigurationTemplate.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildStep;

namespace ensemble {

namespace {

BuildConfiguration *find(const IDesign &design, const QString &name, Answer *answer)
{
    BuildConfiguration *configuration = design.buildConfiguration(name);
    if (!configuration)
        *answer = Answer::failure(
            kind::missing,
            u"The design \"%1\" has no build configuration \"%2\""_s.arg(design.name(), name));
    return configuration;
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

Answer takeTemplate(const Call &call, const IDesign &design, BuildDescription *pattern)
{
    const auto name = call.text("-template");
    if (!name)
        return Answer();
    const auto found = MorvalenCore::ConfigurationTemplate::find(*name);
    if (!found.isOk())
        return Answer::of(found.status());
    const auto made = found.value().configuration(design);
    if (!made.isOk())
        return Answer::of(made.status());
    *pattern = made.value();
    return Answer();
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
        BuildDescription pattern;
        const Answer taken = takeTemplate(call, design, &pattern);
        if (taken.isFailure())
            return taken;
        const auto added = design.tryAddBuildConfiguration(name);
        if (!added.isOk())
            return Answer::of(added.status());
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
        Answer missing;
        return find(design, call.argument(0), &missing)
            ? Answer::of(design.tryRemoveBuildConfiguration(call.argument(0)))
            : missing;
    });
}

Answer rename(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        description.name = call.argument(1);
        return Answer();
    });
}

// The texts of a list of pairs; false, with a failure in *answer, for another one.
bool toPairs(const Value &value, const QString &option, QStringList *texts, Answer *answer)
{
    QString error;
    if (value.toList(texts, &error) && texts->size() % 2 == 0)
        return true;
    if (error.isEmpty())
        error = u"a value is missing behind \"%1\""_s.arg(texts->last());
    *answer = Answer::failure(kind::invalid,
                              u"the value of %1 is no dictionary: %2"_s.arg(option, error));
    return false;
}

// A step as "step get" gives it.
bool takeStep(const QString &text, BuildStep *step, Answer *answer)
{
    QStringList pairs;
    if (!toPairs(Value(text), u"-steps"_s, &pairs, answer))
        return false;
    for (qsizetype i = 0; i < pairs.size(); i += 2) {
        const QString &key = pairs[i];
        const QString &value = pairs[i + 1];
        QString error;
        bool isKnown = true;
        if (key == u"name")
            step->name = value;
        else if (key == u"command")
            step->command = value;
        else if (key == u"pool")
            step->pool = value;
        else if (key == u"inputs")
            isKnown = Value(value).toList(&step->inputs, &error);
        else if (key == u"outputs")
            isKnown = Value(value).toList(&step->outputs, &error);
        if (!isKnown) {
            *answer = Answer::failure(kind::invalid,
                                      u"the value of -steps is no list of steps: %1"_s.arg(error));
            return false;
        }
    }
    return true;
}

// Each takes over what the call says, all macros or all steps.
bool takeMacros(const Call &call, QList<MorvalenCore::BuildMacro> *macros, Answer *answer)
{
    const auto given = call.value("-macros");
    QStringList texts;
    if (!given)
        return true;
    if (!toPairs(*given, u"-macros"_s, &texts, answer))
        return false;
    macros->clear();
    for (qsizetype i = 0; i < texts.size(); i += 2)
        macros->append({texts[i], texts[i + 1]});
    return true;
}

bool takeSteps(const Call &call, QList<BuildStep> *steps, Answer *answer)
{
    const auto given = call.value("-steps");
    if (!given)
        return true;
    QStringList texts;
    QString error;
    if (!given->toList(&texts, &error)) {
        *answer =
            Answer::failure(kind::invalid, u"the value of -steps is no list: %1"_s.arg(error));
        return false;
    }
    steps->clear();
    for (const QString &text : std::as_const(texts)) {
        BuildStep step;
        if (!takeStep(text, &step, answer))
            return false;
        steps->append(step);
    }
    return true;
}

Answer set(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        description.name = call.text("-name").value_or(description.name);
        description.targetPath = call.text("-target").value_or(description.targetPath);
        Answer invalid;
        return takeMacros(call, &description.macros, &invalid)
                && takeSteps(call, &description.steps, &invalid)
            ? Answer()
            : invalid;
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
        Answer missing;
        const BuildConfiguration *configuration = find(design, call.argument(0), &missing);
        if (!configuration)
            return missing;
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
        Answer missing;
        const BuildConfiguration *configuration = find(design, call.argument(0), &missing);
        return configuration ? step(*configuration) : missing;
    });
}

Answer changeConfiguration(const Call &call, const std::function<Answer(BuildDescription &)> &step)
{
    return changeDesign(call, [&](const IDesign &design) {
        Answer missing;
        BuildConfiguration *configuration = find(design, call.argument(0), &missing);
        if (!configuration)
            return missing;
        BuildDescription description = configuration->description();
        const Answer answer = step(description);
        return answer.isFailure() ? answer : change(*configuration, description);
    });
}

} // namespace ensemble
