#pragma once

#include "build/BuildRun.h"
#include "build/PlanKeeper.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <functional>

namespace MorvalenCore {

class BuildRecords;
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
    // says that it did: who listens to that may end the program.
    Qtilities::Core::Status run(bool onlyOutdated, const Tell &tell = {});
    Qtilities::Core::Status runDry();
    Qtilities::Core::Status refresh();
    void cancel();
    QStringList outdatedStepNames() const { return outdated; }

private:
    PlanKeeper::Kept plan();
    // The same, with all that must be looked at before something runs.
    PlanKeeper::Kept checkedPlan();
    Qtilities::Core::Status refusal(const Qtilities::Core::Status &status) const;
    Qtilities::Core::Result<BuildRequest> request() const;
    Qtilities::Core::Result<QStringList> pathsUnder(const QString &node) const;
    void end(KeptPlan &kept, const BuildRun &run, BuildRun::Result result);
    bool look(const KeptPlan &kept);
    void noteGenerated(KeptPlan &kept, QList<int> steps);
    QString title() const;

    ConfigurationItem &configuration;
    DesignState &design;
    DesignFiles &files;
    BuildRecords &records;
    PlanKeeper plans;
    BuildRun *current = nullptr;
    BuildConfiguration::RunState runState = BuildConfiguration::Idle;
    QStringList outdated;
};

} // namespace MorvalenCore
