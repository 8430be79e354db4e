#pragma once

#include <MorvalenCore/IDesign.h>

namespace MorvalenCore {

// What an open design asks and tells the one who knows all open designs.
class DesignRegistry
{
public:
    virtual ~DesignRegistry() = default;

    // Why an open design cannot get that id; empty when it can.
    virtual QString idRefusal(const QString &id) const = 0;
    virtual void designIdChanged(Interfaces::IDesign *design, const QString &oldId) = 0;
    virtual void designChanged(Interfaces::IDesign *design) = 0;
};

} // namespace MorvalenCore
