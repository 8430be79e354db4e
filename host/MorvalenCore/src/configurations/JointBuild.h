#pragma once

#include "build/FolderLock.h"
#include "build/JointRun.h"
#include "configurations/ConfigurationRunner.h"

#include <vector>

namespace MorvalenCore {

// Builds configurations of several designs as one run, so that the steps of all of them share the
// jobs. Each has the state, the progress, the lock and the records of a build of its own.
class JointBuild
{
public:
    JointBuild(const QList<ConfigurationItem *> &configurations, const BuildOptions &buildOptions);
    ~JointBuild();
    JointBuild(const JointBuild &) = delete;
    JointBuild &operator=(const JointBuild &) = delete;

    // Returns when all have ended, and whether all ended well; the log says how each did. One that
    // cannot be run keeps the others from being begun, unless the options say to keep going.
    bool run();

private:
    struct Part
    {
        ConfigurationRunner::UnderWay underWay;
        FolderLock lock;
    };
    using Refusal = Qtilities::Core::Status;

    void take(ConfigurationItem &item);
    static Refusal takeFolder(Part &part);
    void refuse(const ConfigurationRunner::UnderWay &underWay, const Refusal &reason);
    // Leaves out those for which the check has a reason; it is asked once for each, in order.
    template <typename Check>
    bool leaveOut(const Check &check);
    void writeFiles();
    void refuseConflicts();
    void refuseWithoutInputs();
    void runParts();
    QList<JointPart> namedParts() const;
    void noteOutputs(const JointRun &run);

    const QList<ConfigurationItem *> items;
    const BuildOptions options;
    std::vector<Part> parts;
    bool allWell = true;
};

} // namespace MorvalenCore
