#pragma once

#include "document/DocumentBuilds.h"

#include <MorvalenCore/BuildConfiguration.h>

#include <Qtilities/Status.h>

#include <memory>
#include <vector>

namespace MorvalenCore {

class BuildRecords;
class ConfigurationItem;
class DesignFiles;
class DesignState;

// The build configurations of a design: those of its document, and "Default" where files bring
// build commands of their own. Part of its design.
class DesignBuilds
{
public:
    DesignBuilds(DesignState &designState, DesignFiles &fileItems);
    ~DesignBuilds();

    // Takes up what the document holds.
    void load();
    void clear();

    // See IDesign for what these do.
    QStringList names() const;
    BuildConfiguration *find(const QString &name) const;
    // The one that the document names, else the first; null when there is none.
    BuildConfiguration *active() const;
    // Changes nothing when the configuration is not one of this design. A read-only design
    // remembers it as long as it is open.
    void setActive(const BuildConfiguration *configuration);

    Qtilities::Core::Result<BuildConfiguration *> add(const QString &name);
    Qtilities::Core::Status remove(const QString &name);

    // Writes down which of the files that builds have made are gone.
    void saveRecords();

    // What BuildConfiguration::setDescription() does.
    Qtilities::Core::Status change(ConfigurationItem &item, const BuildDescription &description);

private:
    void takeUp(const BuildDescription &description);
    void takeUpDefault();
    void loadRecord(const ConfigurationItem &item);
    // Whether a configuration may get that name.
    Qtilities::Core::Status checkName(const QString &name) const;
    Qtilities::Core::Status write(const BuildDescription &description, const QString &formerName);

    DesignState &state;
    DesignFiles &files;
    std::unique_ptr<BuildRecords> records;
    std::vector<std::unique_ptr<ConfigurationItem>> items;
    QString activeName;
};

} // namespace MorvalenCore
