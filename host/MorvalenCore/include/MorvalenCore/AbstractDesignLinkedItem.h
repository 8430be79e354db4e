#pragma once

#include <Qtilities/statuslog.h>

#include <QString>

#include <atomic>
#include <functional>

namespace MorvalenCore {

// What an item is outside its design; see AbstractDesignLinkedItem for each.
struct LinkedItemState
{
    bool existsOnDisk = false;
    QString versionControlRevision = QStringLiteral("-1");
    QString versionControlSystemName;

    bool operator==(const LinkedItemState &) const = default;
};

// An item of a design that stands for something on disk.
class AbstractDesignLinkedItem
{
public:
    virtual ~AbstractDesignLinkedItem() = default;

    // Whether the item is on disk now.
    virtual bool existsOnDisk() const = 0;

    // Deletes what the item stands for from disk; with permanently it cannot be brought back,
    // otherwise it goes to the trash. The item stays in its design.
    virtual Qtilities::Core::Status tryRemoveFromComputer(bool permanently)
    {
        Q_UNUSED(permanently)
        return Qtilities::Core::Status::unsupported(
            QStringLiteral("The design does not delete what is on disk"));
    }
    // The same for callers that can only take a bool; a warning in the log says why.
    virtual bool removeFromComputer(bool permanently)
    {
        return Qtilities::Logging::logStatus(tryRemoveFromComputer(permanently),
                                             Qtilities::Logging::Logger::Warning);
    }

    // The abbreviated id of the last commit that touched the item; "-1" when it is not under
    // version control.
    virtual QString versionControlRevision() const { return QStringLiteral("-1"); }

    // The name of the version control system that manages the item; empty when none does.
    virtual QString versionControlSystemName() const { return {}; }

    // A function that looks all of that up later: without the item, in any thread, since a long
    // history takes its time. What it gives once cancelled is set means nothing.
    using StateLookup = std::function<LinkedItemState(const std::atomic_bool &cancelled)>;
    virtual StateLookup stateLookup() const
    {
        return [state = LinkedItemState {existsOnDisk(), versionControlRevision(),
                                         versionControlSystemName()}](const std::atomic_bool &) {
            return state;
        };
    }
};

} // namespace MorvalenCore
