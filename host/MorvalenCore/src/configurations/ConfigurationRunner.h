#pragma once

#include "build/BuildRun.h"
#include "configurations/BuildRecords.h"
#include "configurations/ConfigurationPlan.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildOptions.h>

#include <QPointer>

#include <functional>

namespace MorvalenCore {

class ConfigurationItem;
class DesignFiles;
class DesignState;

// Runs the build of one configuration, and looks at what is outdated. Part of the configuration;
// when that goes in the middle of a run, the run ends at once.
class ConfigurationRunner
{
public:
    ConfigurationRunner(ConfigurationItem &owner, DesignState &designState, DesignFiles &fileItems,
                        BuildRecords &buildRecords);
    ~ConfigurationRunner();
    ConfigurationRunner(const ConfigurationRunner &) = delete;
    ConfigurationRunner &operator=(const ConfigurationRunner &) = delete;

    BuildConfiguration::RunState state() const { return runState; }

    // In the order of execution; as listed when the steps cannot be run.
    QStringList stepNames();

    using Tell = std::function<void(const Qtilities::Core::Status &)>;

    // See BuildConfiguration for what these do. How a build ended is told of before BuildMonitor
    // says that it did: who listens to that may end the program. The options stand in place of the
    // settings.
    Qtilities::Core::Status run(bool onlyOutdated, const Tell &tell = {},
                                const BuildOptions &options = {});
    Qtilities::Core::Status runDry();
    Qtilities::Core::Status refresh();
    void cancel();
    QStringList outdatedStepNames() const { return outdated; }

    // The parts of a run, for those who run several configurations. The configuration may go while
    // events are served; what is used afterwards is kept in the first.
    struct UnderWay
    {
        QPointer<ConfigurationItem> configuration;
        QString title;
        QString design;
        std::shared_ptr<KeptPlan> kept;
    };
    // Fails when it is running or cannot be run; then it is Failed, in the second case.
    Qtilities::Core::Result<UnderWay> prepare();
    // The run must go on until it is told of its end, or is ended by the configuration's.
    void begin(BuildRun &run);
    void connectToLog(const BuildRun &run);
    void showProgress(int done, int total, const QString &step);
    void showRunning(const KeptPlan &kept, const QList<RunningSteps::Step> &steps);
    static Qtilities::Core::Status end(const UnderWay &underWay, const BuildRun::End &end,
                                       const Tell &tell);
    // Notes what was made before the end does, so that the records of several are written at once.
    std::optional<BuildRecords::Writing> note(KeptPlan &kept, QList<int> steps);
    static void warnOfRecord(const KeptPlan &kept, const Qtilities::Core::Status &written);
    // It will not be begun: as failed, for a reason, or as cancelled, since another one has failed.
    Qtilities::Core::Status refuse(const Qtilities::Core::Status &reason);
    Qtilities::Core::Status leaveOut();

    static BuildRun::Options optionsFor(const BuildOptions &options);

private:
    Qtilities::Core::Status refusal(const Qtilities::Core::Status &status) const;
    void takeEnd(KeptPlan &kept, const BuildRun::End &end);
    bool look(const KeptPlan &kept);
    QString title() const;

    ConfigurationItem &configuration;
    DesignState &design;
    DesignFiles &files;
    BuildRecords &records;
    ConfigurationPlan plan;
    BuildRun *current = nullptr;
    BuildConfiguration::RunState runState = BuildConfiguration::Idle;
    QStringList outdated;
};

} // namespace MorvalenCore
