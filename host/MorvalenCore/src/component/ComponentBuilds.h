#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace MorvalenCore {

class ComponentTree;

// A named text that commands of a build configuration can refer to.
struct BuildMacro
{
    QString name;
    QString value;

    bool operator==(const BuildMacro &) const = default;
};

// One command line with its files. An input "node:NAME" stands for the files of a node.
struct BuildStep
{
    QString name;
    QString command;
    QStringList inputs;
    QStringList outputs;

    bool operator==(const BuildStep &) const = default;
};

// A build configuration as the document has it. An empty target path means the default.
struct BuildDescription
{
    QString name;
    QString targetPath;
    QList<BuildMacro> macros;
    // In order of execution.
    QList<BuildStep> steps;

    bool operator==(const BuildDescription &) const = default;
};

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

    // Writes a configuration: replaces the one of its name, else appends it. Macros and steps
    // before the first one and behind the last one that differs stay untouched in the file.
    bool write(const BuildDescription &configuration, QString *error = nullptr);
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
