#include "ensemble/steps.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildStep;

namespace ensemble {

namespace {

Answer noSuchStep(const Call &call, const QString &name)
{
    return Answer::failure(kind::missing,
                           u"The build configuration \"%1\" has no step \"%2\" of its own"_s.arg(
                               call.argument(0), name));
}

template <typename Steps>
auto find(Steps &steps, const QString &name)
{
    return std::find_if(steps.begin(), steps.end(),
                        [&name](const BuildStep &step) { return step.name == name; });
}

// Takes over a list that the call has as an option.
Status takeList(const Call &call, std::string_view option, QStringList *target)
{
    const std::optional<Value> value = call.value(option);
    if (!value)
        return {};
    const Result<QStringList> texts = value->toList();
    if (!texts.isOk())
        return Status::invalidArgument(u"the value of %1 is no list: %2"_s.arg(
            QLatin1StringView(option.data(), qsizetype(option.size())), texts.status().text()));
    *target = texts.value();
    return {};
}

// Takes over what the call says of a step.
Answer take(const Call &call, BuildStep *step)
{
    step->name = call.text("-name").value_or(step->name);
    step->command = call.text("-command").value_or(step->command);
    step->pool = call.text("-pool").value_or(step->pool);
    const Status inputs = takeList(call, "-inputs", &step->inputs);
    return Answer::of(inputs.isOk() ? takeList(call, "-outputs", &step->outputs) : inputs);
}

// Puts a step in front of the one that the call names, else where it was, else at the end.
Answer place(const Call &call, const BuildStep &step, qsizetype index,
             BuildDescription *description)
{
    if (step.name.isEmpty())
        return Answer::failure(kind::invalid, u"The name of a step cannot be empty"_s);
    if (find(description->steps, step.name) != description->steps.end())
        return Answer::failure(kind::exists,
                               u"The build configuration \"%1\" has a step \"%2\" already"_s.arg(
                                   call.argument(0), step.name));
    if (const auto before = call.text("-before")) {
        const auto next = find(description->steps, *before);
        if (next == description->steps.end())
            return noSuchStep(call, *before);
        index = next - description->steps.begin();
    }
    description->steps.insert(index, step);
    return Answer();
}

Answer list(const Call &call)
{
    return onConfiguration(call, [](const BuildConfiguration &configuration) {
        Value names = Value::list();
        for (const ListedStep &listed : stepsOf(configuration))
            names.append(Value(listed.step.name));
        return Answer(names);
    });
}

Answer get(const Call &call)
{
    return onConfiguration(call, [&call](const BuildConfiguration &configuration) {
        for (const ListedStep &listed : stepsOf(configuration)) {
            if (listed.step.name == call.argument(1))
                return Answer(dictionaryOf(listed));
        }
        return Answer::failure(kind::missing,
                               u"The build configuration \"%1\" has no step \"%2\""_s.arg(
                                   call.argument(0), call.argument(1)));
    });
}

Answer add(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        BuildStep step;
        step.name = call.argument(1);
        const Answer taken = take(call, &step);
        return taken.isFailure() ? taken
                                 : place(call, step, description.steps.size(), &description);
    });
}

Answer set(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        const auto old = find(description.steps, call.argument(1));
        if (old == description.steps.end())
            return noSuchStep(call, call.argument(1));
        const qsizetype index = old - description.steps.begin();
        BuildStep step = *old;
        const Answer taken = take(call, &step);
        if (taken.isFailure() || call.text("-before") == old->name)
            return taken.isFailure() ? taken : noSuchStep(call, old->name);
        description.steps.erase(old);
        return place(call, step, index, &description);
    });
}

Answer remove(const Call &call)
{
    return changeConfiguration(call, [&call](BuildDescription &description) {
        const auto step = find(description.steps, call.argument(1));
        if (step == description.steps.end())
            return noSuchStep(call, call.argument(1));
        description.steps.erase(step);
        return Answer();
    });
}

constexpr Option designOnly[] = {designOption};
constexpr Option addOptions[] = {{"-command", "COMMAND", true}, {"-inputs", "LIST"},
                                 {"-outputs", "LIST"},          {"-pool", "POOL"},
                                 {"-before", "NAME"},           designOption};
constexpr Option setOptions[] = {
    {"-name", "NEW_NAME"}, {"-command", "COMMAND"}, {"-inputs", "LIST"}, {"-outputs", "LIST"},
    {"-pool", "POOL"},     {"-before", "NAME"},     designOption};

constexpr Row rows[] = {
    {.word = "list",
     .arguments = "CONFIGURATION",
     .options = designOnly,
     .does = "the names of the steps",
     .step = list},
    {.word = "get",
     .arguments = "CONFIGURATION NAME",
     .options = designOnly,
     .does = "a dictionary of all there is to a step",
     .step = get},
    {.word = "add",
     .arguments = "CONFIGURATION NAME",
     .options = addOptions,
     .does = "adds a step, at the end or in front of another one",
     .step = add},
    {.word = "set",
     .arguments = "CONFIGURATION NAME",
     .options = setOptions,
     .does = "changes what is given of a step",
     .step = set},
    {.word = "remove",
     .arguments = "CONFIGURATION NAME",
     .options = designOnly,
     .does = "removes a step",
     .step = remove},
};

} // namespace

constinit const Rows stepRows = rows;

QList<ListedStep> stepsOf(const BuildConfiguration &configuration)
{
    QList<ListedStep> steps;
    for (const BuildStep &step : configuration.description().steps)
        steps.append({step, false});
    for (const BuildStep &step : configuration.stepsOfFiles())
        steps.append({step, true});
    return steps;
}

Value dictionaryOf(const ListedStep &listed)
{
    return Value::dictionary()
        .set(u"name"_s, listed.step.name)
        .set(u"command"_s, listed.step.command)
        .set(u"inputs"_s, Value::list(listed.step.inputs))
        .set(u"outputs"_s, Value::list(listed.step.outputs))
        .set(u"pool"_s, listed.step.pool)
        .set(u"of_file"_s, Value::truth(listed.isOfFile));
}

} // namespace ensemble
