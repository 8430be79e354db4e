#include "ensemble/builds.h"

#include "ensemble/configurations.h"
#include "interp/ServedEvents.h"

#include <MorvalenCore/DesignManager.h>

#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignManager;

namespace ensemble {

namespace {

constexpr Option buildOptionRows[] = {{"-configuration", "NAME"}, {"-all"}, {"-dry"}};

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

} // namespace

constinit const Options buildOptions = buildOptionRows;

Answer build(const Call &call)
{
    QList<Job> jobs;
    Answer missing;
    if (!takeJobs(call, &jobs, &missing))
        return missing;
    if (jobs.isEmpty() && !call.has("-all"))
        return Answer::failure(kind::missing, u"No design is active"_s);
    Value states = Value::dictionary();
    bool allWell = true;
    const ServedEvents served;
    for (const Job &job : jobs) {
        const bool built = job.configuration && job.configuration->run(true, call.has("-dry"));
        states.set(job.id,
                   job.configuration
                       ? BuildConfiguration::runStateToString(job.configuration->runState())
                       : u"Cancelled"_s);
        allWell = allWell && built;
    }
    return allWell ? Answer(states) : Answer::failure(kind::failed, states);
}

} // namespace ensemble
