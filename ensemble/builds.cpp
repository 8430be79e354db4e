#include "ensemble/builds.h"

#include "ensemble/configurations.h"
#include "interp/ServedEvents.h"

#include <MorvalenCore/BuildSettings.h>
#include <MorvalenCore/DesignManager.h>

#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildOptions;
using MorvalenCore::BuildSettings;
using MorvalenCore::DesignManager;

namespace ensemble {

namespace {

constexpr Option buildOptionRows[] = {
    {"-configuration", "NAME"}, {"-all"}, {"-jobs", "N"}, {"-keep-going"},
    {"-spread", "N"},           {"-dry"}};

// One build of the call. A script that runs meanwhile may close the design.
struct Job
{
    QString id;
    QPointer<BuildConfiguration> configuration;
};

// The ids of the designs that the call is about, each once.
QStringList idsOf(const Call &call)
{
    QStringList ids;
    if (call.has("-all"))
        ids = DesignManager::instance()->openDesignIds();
    else if (const IDesign *active = DesignManager::instance()->activeDesigns().value(0);
             active && call.count() == 0)
        ids.append(idOf(*active));
    ids += call.argumentsFrom(0);
    ids.removeDuplicates();
    return ids;
}

// One design, or none at all, has the configuration of a name, or any.
Status noneHas(const QString &sentence, const std::optional<QString> &name)
{
    return Status::notFound(name ? sentence + u" \"%1\""_s.arg(*name) : sentence);
}

// The builds that the call asks for; all of them are there. Of all designs those are meant that
// have something to build.
Result<QList<Job>> jobsOf(const Call &call)
{
    QList<Job> jobs;
    const QStringList named = call.argumentsFrom(0);
    const QStringList ids = idsOf(call);
    const auto name = call.text("-configuration");
    for (const QString &id : ids) {
        const Result<IDesign *> design = findDesign(id);
        if (!design.isOk())
            return design.status();
        BuildConfiguration *configuration = name ? design.value()->buildConfiguration(*name)
                                                 : design.value()->activeBuildConfiguration();
        if (configuration)
            jobs.append({id, configuration});
        else if (!call.has("-all") || named.contains(id))
            return noneHas(u"The design \"%1\" has no build configuration"_s.arg(id), name);
    }
    if (jobs.isEmpty() && !ids.isEmpty())
        return noneHas(u"No open design has a build configuration"_s, name);
    return jobs;
}

// A number that the call has as an option, if it has.
Result<std::optional<int>> countOf(const Call &call, std::string_view option)
{
    const auto text = call.text(option);
    const std::optional<int> count = text ? BuildSettings::countFrom(*text) : std::nullopt;
    if (text && !count)
        return Status::invalidArgument(
            u"the value of %1 must be a whole number, at least 1, not \"%2\""_s.arg(
                QLatin1StringView(option.data(), qsizetype(option.size())), *text));
    return count;
}

Value statesOf(const QList<Job> &jobs)
{
    Value states = Value::dictionary();
    for (const Job &job : jobs)
        states.set(job.id,
                   job.configuration
                       ? BuildConfiguration::runStateToString(job.configuration->runState())
                       : u"Cancelled"_s);
    return states;
}

} // namespace

constinit const Options buildOptions = buildOptionRows;

Answer build(const Call &call)
{
    const auto count = countOf(call, "-jobs");
    if (!count.isOk())
        return Answer::of(count.status());
    const auto spread = countOf(call, "-spread");
    if (!spread.isOk())
        return Answer::of(spread.status());
    const Result<QList<Job>> asked = jobsOf(call);
    if (!asked.isOk())
        return Answer::of(asked.status());
    const QList<Job> &jobs = asked.value();
    if (jobs.isEmpty() && !call.has("-all"))
        return Answer::failure(kind::missing, u"No design is active"_s);
    const BuildOptions options {.jobs = count.value(),
                                .keepGoing = call.has("-keep-going"),
                                .isDry = call.has("-dry"),
                                .spread = spread.value()};
    QList<BuildConfiguration *> configurations;
    for (const Job &job : jobs)
        configurations.append(job.configuration);
    const ServedEvents served;
    const bool built = jobs.isEmpty() || DesignManager::instance()->build(configurations, options);
    const Value states = statesOf(jobs);
    return built ? Answer(states) : Answer::failure(kind::failed, states);
}

} // namespace ensemble
