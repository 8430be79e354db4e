#pragma once

#include "build/PlanKeeper.h"

#include <Qtilities/Status.h>

namespace MorvalenCore {

class ConfigurationItem;
class DesignFiles;
class DesignState;

// What is to be run for a configuration, as the design and the settings are now; kept as long as
// they stay the same. Part of the configuration.
class ConfigurationPlan
{
public:
    ConfigurationPlan(ConfigurationItem &owner, DesignState &designState, DesignFiles &fileItems);
    ConfigurationPlan(const ConfigurationPlan &) = delete;
    ConfigurationPlan &operator=(const ConfigurationPlan &) = delete;

    // Fails when the steps cannot be run.
    PlanKeeper::Kept planned();
    // Fails also when nothing may be written to the target path.
    PlanKeeper::Kept placed();
    // Fails also when a file would be overwritten that no build has made.
    PlanKeeper::Kept checked();

private:
    Qtilities::Core::Result<BuildRequest> request() const;
    Qtilities::Core::Result<QStringList> pathsUnder(const QString &node) const;

    ConfigurationItem &configuration;
    DesignState &design;
    DesignFiles &files;
    PlanKeeper plans;
};

} // namespace MorvalenCore
