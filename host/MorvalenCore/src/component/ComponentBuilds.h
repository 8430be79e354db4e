#pragma once

#include "document/DocumentBuilds.h"

#include <cstdint>

namespace MorvalenCore {

class ComponentTree;

// The build configurations of a component document that are ours. What the standard's
// buildCommand elements ask for is ComponentFiles's.
class ComponentBuilds final : public DocumentBuilds
{
public:
    explicit ComponentBuilds(ComponentTree &tree);

    QStringList names() const;
    QList<BuildDescription> configurations() const override;

    // The name that the document gives as active one, whether there is such a configuration or
    // not; empty when it gives none.
    QString activeName() const override;
    // An empty name removes the mark.
    Qtilities::Core::Status setActiveName(const QString &name) override;

    // Writes a configuration over the one of its name, or of its former name, else appends it.
    // What does not differ stays untouched in the file, and what is not ours stays.
    Qtilities::Core::Status write(const BuildDescription &configuration,
                                  const QString &formerName = {}) override;
    // Only the target path, of the configuration of that name; false where there is none.
    Qtilities::Core::Status setTargetPath(const QString &name, const QString &targetPath);
    // False where there is none of that name.
    bool remove(const QString &name) override;

private:
    QList<std::uint32_t> nodes() const;
    std::uint32_t find(const QString &name) const;

    ComponentTree &tree;
};

} // namespace MorvalenCore
