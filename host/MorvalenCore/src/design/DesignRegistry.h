#pragma once

#include <MorvalenCore/IDesign.h>

namespace MorvalenCore {

// What an open design asks and tells the one who knows all open designs.
class DesignRegistry
{
public:
    virtual ~DesignRegistry() = default;

    // Whether an open design can get that id.
    virtual Qtilities::Core::Status checkId(const QString &id) const = 0;
    virtual void designIdChanged(Interfaces::IDesign *design, const QString &oldId) = 0;
    virtual void designChanged(Interfaces::IDesign *design) = 0;
};

} // namespace MorvalenCore
