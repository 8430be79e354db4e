#pragma once

#include "configurations/ConfigurationRunner.h"
#include "configurations/MacroTable.h"
#include "document/DocumentBuilds.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <Qtilities/Status.h>

namespace MorvalenCore {

class BuildRecords;
class DesignBuilds;
class DesignFiles;
class DesignState;

// A build configuration of a design, kept in the design's document.
class ConfigurationItem final : public BuildConfiguration
{
    Q_OBJECT

public:
    ConfigurationItem(DesignBuilds &owner, DesignState &designState, DesignFiles &files,
                      BuildRecords &records, const BuildDescription &description);

    // The configuration that also runs the build commands that files bring along.
    static QString nameOfDefault();

    QString configurationName() const override { return data.name; }
    QString getTargetPath() const override;
    Qtilities::Core::Status trySetTargetPath(const QString &path) override;
    BuildDescription description() const override { return data; }
    QList<BuildStep> stepsOfFiles() const override;
    Qtilities::Core::Status trySetDescription(const BuildDescription &description) override;
    RunState runState() const override { return runner.state(); }
    QStringList stepNamesInOrder(int count) const override;
    const BuildStepPropertyManager *propertyManager() const override { return &macros; }
    Qtilities::Core::Status tryRefresh() override { return runner.refresh(); }
    QStringList outdatedStepNames() const override { return runner.outdatedStepNames(); }
    Qtilities::Core::Status tryRun(bool onlyOutdated, bool dryRun) override;
    bool run(bool onlyOutdated, bool dryRun) override;
    void cancel() override { runner.cancel(); }

    const QList<BuildMacro> &ownMacros() const { return data.macros; }
    // What the document holds by now.
    void takeUp(const BuildDescription &description) { data = description; }

    // The steps as they are listed, those that files bring along last.
    QList<BuildStep> steps() const;
    // The target path, absolute and clean; fails when it names what is not known.
    Qtilities::Core::Result<QString> targetPathOnDisk() const;
    const MacroTable &macroTable() const { return macros; }
    ConfigurationRunner &buildRunner() { return runner; }
    // How a run ended, for the log.
    static void logEndOf(const Qtilities::Core::Status &ended) { logEnd(ended); }
    // The same as run(), otherwise than the settings say.
    bool runWith(const BuildOptions &options);

private:
    bool runNow(bool onlyOutdated, const BuildOptions &options);

    DesignBuilds &builds;
    DesignState &state;
    BuildDescription data;
    MacroTable macros;
    // Asked for what is not to be known without planning; a plan is kept.
    mutable ConfigurationRunner runner;
};

} // namespace MorvalenCore
