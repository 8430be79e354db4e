#pragma once

#include "component/ComponentBuilds.h"
#include "design/MacroTable.h"

#include <MorvalenCore/BuildConfiguration.h>

namespace MorvalenCore {

class DesignState;

// A build configuration of a design, kept in the design's document.
class ConfigurationItem final : public BuildConfiguration
{
    Q_OBJECT

public:
    ConfigurationItem(DesignState &designState, const BuildDescription &description);

    // The configuration that also runs the build commands that files bring along.
    static QString nameOfDefault();

    QString configurationName() const override { return data.name; }
    QString getTargetPath() const override;
    void setTargetPath(const QString &path) override;
    RunState runState() const override { return lastRun; }
    QStringList stepNamesInOrder(int count) const override;
    const BuildStepPropertyManager *propertyManager() const override { return &macros; }
    void refresh() override;
    bool run(bool onlyOutdated, bool dryRun) override;

    const BuildDescription &description() const { return data; }
    void setDescription(const BuildDescription &description) { data = description; }

    // The steps in the order of execution.
    QList<BuildStep> steps() const;
    // The target path, absolute and clean.
    QString absoluteTargetPath() const;

private:
    QList<BuildStep> stepsOfFiles() const;

    DesignState &state;
    BuildDescription data;
    MacroTable macros;
    RunState lastRun = Idle;
};

} // namespace MorvalenCore
