#pragma once

#include <MorvalenCore/BuildDescription.h>

#include <cstdint>

namespace MorvalenCore {

class ComponentTree;

// The build configurations of a component document that are ours. What the standard's
// buildCommand elements ask for is ComponentFiles's.
class ComponentBuilds
{
public:
    explicit ComponentBuilds(ComponentTree &tree);

    QStringList names() const;
    QList<BuildDescription> configurations() const;

    // The name that the document gives as active one, whether there is such a configuration or
    // not; empty when it gives none.
    QString activeName() const;
    // An empty name removes the mark.
    bool setActiveName(const QString &name, QString *error = nullptr);

    // Writes a configuration over the one of its name, or of its former name, else appends it.
    // What does not differ stays untouched in the file, and what is not ours stays.
    bool write(const BuildDescription &configuration, QString *error = nullptr,
               const QString &formerName = {});
    // Only the target path, of the configuration of that name; false where there is none.
    bool setTargetPath(const QString &name, const QString &targetPath, QString *error = nullptr);
    // False where there is none of that name.
    bool remove(const QString &name);

private:
    QList<std::uint32_t> nodes() const;
    std::uint32_t find(const QString &name) const;

    ComponentTree &tree;
};

} // namespace MorvalenCore
