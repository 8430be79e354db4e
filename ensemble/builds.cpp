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

// The builds that the call asks for; false, with a failure in *answer, when one cannot be there.
bool takeJobs(const Call &call, QList<Job> *jobs, Answer *answer)
{
    for (const QString &id : idsOf(call)) {
        const IDesign *design = findDesign(id, answer);
        if (!design)
            return false;
        const auto name = call.text("-configuration");
        BuildConfiguration *configuration =
            name ? design->buildConfiguration(*name) : design->activeBuildConfiguration();
        if (!configuration) {
            *answer = Answer::failure(
                kind::missing,
                name ? u"The design \"%1\" has no build configuration \"%2\""_s.arg(id, *name)
                     : u"The design \"%1\" has no build configuration"_s.arg(id));
            return false;
        }
        jobs->append({id, configuration});
    }
    return true;
}

// Takes over a number that the call has as an option. False with a failure in *answer.
bool takeCount(const Call &call, std::string_view option, std::optional<int> *count, Answer *answer)
{
    const auto text = call.text(option);
    if (!text)
        return true;
    *count = BuildSettings::countFrom(*text);
    if (!*count)
        *answer =
            Answer::failure(kind::invalid,
                            u"the value of %1 must be a whole number, at least 1, not \"%2\""_s.arg(
                                QLatin1StringView(option.data(), qsizetype(option.size())), *text));
    return count->has_value();
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
    QList<Job> jobs;
    BuildOptions options {.keepGoing = call.has("-keep-going"), .isDry = call.has("-dry")};
    Answer bad;
    if (!takeCount(call, "-jobs", &options.jobs, &bad)
        || !takeCount(call, "-spread", &options.spread, &bad) || !takeJobs(call, &jobs, &bad))
        return bad;
    if (jobs.isEmpty() && !call.has("-all"))
        return Answer::failure(kind::missing, u"No design is active"_s);
    QList<BuildConfiguration *> configurations;
    for (const Job &job : std::as_const(jobs))
        configurations.append(job.configuration);
    const ServedEvents served;
    const bool built = jobs.isEmpty() || DesignManager::instance()->build(configurations, options);
    const Value states = statesOf(jobs);
    return built ? Answer(states) : Answer::failure(kind::failed, states);
}

} // namespace ensemble
