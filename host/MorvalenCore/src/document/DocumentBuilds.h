#pragma once

#include <MorvalenCore/BuildDescription.h>
#include <Qtilities/Status.h>

namespace MorvalenCore {

// The build configurations of a document. What files bring along is DocumentFiles's.
class DocumentBuilds
{
public:
    virtual ~DocumentBuilds() = default;

    virtual QList<BuildDescription> configurations() const = 0;

    // The name that the document gives as active one, whether there is such a configuration or
    // not; empty when it gives none.
    virtual QString activeName() const = 0;
    // An empty name removes the mark.
    virtual Qtilities::Core::Status setActiveName(const QString &name) = 0;

    // Writes a configuration over the one of its name, or of its former name, else appends it.
    virtual Qtilities::Core::Status write(const BuildDescription &configuration,
                                          const QString &formerName = {}) = 0;
    // False where there is none of that name.
    virtual bool remove(const QString &name) = 0;
};

} // namespace MorvalenCore
