#include "configurations/ConfigurationRunner.h"

#include "configurations/buildends.h"
#include "configurations/ConfigurationItem.h"
#include "configurations/generatedfiles.h"
#include "configurations/targetplaces.h"
#include "items/DesignState.h"
#include "log/hostlog.h"

#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/BuildSettings.h>
#include <MorvalenCore/ChangeBracket.h>

#include <QFileInfo>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace MorvalenCore {

ConfigurationRunner::ConfigurationRunner(ConfigurationItem &owner, DesignState &designState,
                                         DesignFiles &fileItems, BuildRecords &buildRecords)
    : configuration(owner),
      design(designState),
      files(fileItems),
      records(buildRecords),
      plan(owner, designState, fileItems)
{
}

ConfigurationRunner::~ConfigurationRunner()
{
    if (!current)
        return;
    current->endNow();
    if (runState == BuildConfiguration::Running)
        BuildMonitor::instance()->end(&configuration);
}

QString ConfigurationRunner::title() const
{
    return u"The build \"%1\" of design \"%2\""_s.arg(configuration.configurationName(),
                                                      design.name());
}

Status ConfigurationRunner::refusal(const Status &status) const
{
    return status.withText(u"%1 cannot be run: %2"_s.arg(title(), status.text()));
}

QStringList ConfigurationRunner::stepNames()
{
    QStringList names;
    const PlanKeeper::Kept kept = plan.planned();
    if (kept.isOk()) {
        for (const PlannedStep &step : kept.value()->plan.steps)
            names.append(step.name);
        return names;
    }
    for (const BuildStep &step : configuration.steps())
        names.append(step.name);
    return names;
}

// The plan is made of the same settings, and there is none when they cannot be used.
BuildRun::Options ConfigurationRunner::optionsFor(const BuildOptions &options)
{
    const BuildSettings now = BuildSettings::current().valueOr({});
    return {options.jobs ? options.jobs : now.jobs, options.keepGoing || now.keepGoing,
            now.allocation};
}

// Sends what a run says to the log.
void ConfigurationRunner::connectToLog(const BuildRun &run)
{
    QObject::connect(&run, &BuildRun::message, &run,
                     [alive = QPointer(&configuration)](auto type, const QString &text) {
                         BuildMonitor::instance()->say(alive, type, text);
                     });
}

Status ConfigurationRunner::run(bool onlyOutdated, const Tell &tell, const BuildOptions &options)
{
    const Result<UnderWay> prepared = prepare();
    if (!prepared.isOk())
        return prepared.status();
    const UnderWay &underWay = prepared.value();
    BuildRun run(underWay.kept->plan, underWay.kept->file);
    run.setOptions(optionsFor(options));
    connectToLog(run);
    QObject::connect(
        &run, &BuildRun::progressed, &configuration,
        [this](int done, int total, const QString &step) { showProgress(done, total, step); });
    QObject::connect(&run, &BuildRun::stepsRun, &configuration,
                     [this, kept = underWay.kept](const QList<RunningSteps::Step> &steps) {
                         showRunning(*kept, steps);
                     });
    begin(run);
    run.run(onlyOutdated ? BuildRun::Kind::Outdated : BuildRun::Kind::All);
    return end(underWay, run.endOfRun(), tell);
}

void ConfigurationRunner::showRunning(const KeptPlan &kept, const QList<RunningSteps::Step> &steps)
{
    QList<RunningStep> named;
    for (const RunningSteps::Step &step : steps)
        named.append({kept.plan.steps[step.index].name, step.milliseconds});
    BuildMonitor::instance()->tellRunning(&configuration, named);
}

Result<ConfigurationRunner::UnderWay> ConfigurationRunner::prepare()
{
    if (current)
        return Status::busy(u"%1 is running already"_s.arg(title()));
    const PlanKeeper::Kept checked = plan.checked();
    if (!checked.isOk())
        return refuse(checked.status());
    return UnderWay {&configuration, title(), design.name(), checked.value()};
}

Status ConfigurationRunner::refuse(const Status &reason)
{
    runState = BuildConfiguration::Failed;
    return refusal(reason);
}

Status ConfigurationRunner::leaveOut()
{
    runState = BuildConfiguration::Cancelled;
    return Status::cancelled(u"%1 was not begun, since another one failed"_s.arg(title()));
}

void ConfigurationRunner::begin(BuildRun &run)
{
    current = &run;
    runState = BuildConfiguration::Running;
    BuildMonitor::instance()->begin(&configuration);
}

void ConfigurationRunner::showProgress(int done, int total, const QString &step)
{
    BuildMonitor::instance()->progress(&configuration, done, total, step);
}

Status ConfigurationRunner::end(const UnderWay &underWay, const BuildRun::End &end,
                                const Tell &tell)
{
    const Status status = statusOf(underWay.title, underWay.kept->plan, end);
    if (tell)
        tell(status);
    if (!underWay.configuration)
        return status.isOk() ? Status::cancelled({}) : status;
    underWay.configuration->buildRunner().takeEnd(*underWay.kept, end);
    return status;
}

void ConfigurationRunner::takeEnd(KeptPlan &kept, const BuildRun::End &end)
{
    current = nullptr;
    runState = stateAfter(end.result);
    if (const auto record = note(kept, end.done))
        warnOfRecord(kept, record->write());
    outdated.clear();
    const auto names = [&kept](const QList<int> &steps) {
        QStringList list;
        for (const int step : steps)
            list.append(kept.plan.steps[step].name);
        return list;
    };
    const QPointer<ConfigurationItem> alive(&configuration);
    BuildMonitor::instance()->tellResults(&configuration, names(end.done), names(end.failed));
    if (alive)
        BuildMonitor::instance()->end(&configuration);
}

std::optional<BuildRecords::Writing> ConfigurationRunner::note(KeptPlan &kept, QList<int> steps)
{
    // A build of an earlier session may have ended without being noted.
    if (!kept.isNoted)
        steps += stepsNotNoted(kept.plan, files);
    kept.isNoted = true;
    if (steps.isEmpty())
        return {};
    // A step may have put a link in the folder's place.
    const Status place = checkTargetPlace(kept.plan, kept.plan.targetFolder);
    warnOfRecord(kept, place);
    if (!place.isOk())
        return {};
    ChangeBracket::instance()->open();
    auto record =
        records.note(kept.plan.targetFolder,
                     outputsOf(kept.plan, steps, design.document().text(DesignField::Version)));
    ChangeBracket::instance()->close();
    return record;
}

void ConfigurationRunner::warnOfRecord(const KeptPlan &kept, const Status &written)
{
    if (!written.isOk())
        logWarning(u"What the build \"%1\" has made cannot be noted: %2"_s.arg(
            kept.plan.configuration, written.text()));
}

Status ConfigurationRunner::runDry()
{
    if (current)
        return Status::busy(u"%1 is running already"_s.arg(title()));
    const PlanKeeper::Kept checked = plan.checked();
    if (!checked.isOk())
        return refusal(checked.status());
    if (!look(*checked.value()))
        return Status::failed({});
    if (outdated.isEmpty())
        logInfo(u"%1 is up to date"_s.arg(title()));
    for (const QString &name : std::as_const(outdated))
        logInfo(u"Would run \"%1\""_s.arg(name));
    return {};
}

Status ConfigurationRunner::refresh()
{
    if (current)
        return {};
    runState = BuildConfiguration::Idle;
    const PlanKeeper::Kept kept = plan.placed();
    if (!kept.isOk()) {
        outdated.clear();
        return refusal(kept.status());
    }
    const qsizetype count = kept.value()->plan.steps.size();
    // What went wrong is among what the run has said.
    if (!look(*kept.value()))
        return Status::failed({});
    logInfo(u"%1 has %2 outdated of %3 steps"_s.arg(title()).arg(outdated.size()).arg(count));
    return {};
}

// Sets what is outdated.
bool ConfigurationRunner::look(const KeptPlan &kept)
{
    outdated.clear();
    // Without Ninja's log nothing is known of what was made, and nothing needs to be written.
    if (!QFileInfo::exists(kept.plan.targetFolder)) {
        for (const PlannedStep &step : kept.plan.steps)
            outdated.append(step.name);
        return true;
    }
    const QPointer<ConfigurationItem> alive(&configuration);
    BuildRun run(kept.plan, kept.file);
    connectToLog(run);
    current = &run;
    const BuildRun::Result result = run.run(BuildRun::Kind::Look);
    if (!alive)
        return false;
    current = nullptr;
    for (const int step : run.doneSteps())
        outdated.append(kept.plan.steps[step].name);
    return result == BuildRun::Result::Completed;
}

void ConfigurationRunner::cancel()
{
    if (current)
        current->cancel();
}

} // namespace MorvalenCore
