#pragma once

#include <MorvalenCore/BuildDescription.h>

#include <Qtilities/Status.h>

#include <QHash>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

namespace MorvalenCore {

// What a build configuration asks for, with nothing looked up or expanded yet.
struct BuildRequest
{
    QString configuration;
    // Absolute; commands run in it, and relative paths are of it.
    QString workingFolder;
    // As it was set.
    QString targetPath;
    // Those of the configuration and of the design, hidden ones left out.
    QHash<QString, QString> macros;
    QList<BuildStep> steps;
    // Arguments that stand in front of every step's command; may be empty.
    QString launcher;
    // How many steps of a pool may run at once.
    QMap<QString, int> pools;
    // The absolute paths of the files of each node that an input names; a node that is missing
    // here is not in the design.
    QHash<QString, QStringList> nodes;

    bool operator==(const BuildRequest &) const = default;
};

// A step as it will be run. Paths are absolute and clean.
struct PlannedStep
{
    QString name;
    // The name in one line, made unique; Ninja knows the step by it.
    QString label;
    // For the shell, macros expanded, launcher in front.
    QString command;
    QStringList inputs;
    QStringList outputs;
    // Empty when it is of none.
    QString pool {};

    bool operator==(const PlannedStep &) const = default;
};

// A build that can be handed to Ninja: no file has two makers and no step waits for itself.
struct BuildPlan
{
    QString configuration;
    QString workingFolder;
    // The target path, absolute.
    QString targetFolder;
    // In an order in which each step comes behind those that make its inputs; otherwise as listed.
    QList<PlannedStep> steps;
    // Those that steps are of, with their depths.
    QMap<QString, int> pools {};

    bool operator==(const BuildPlan &) const = default;
};

// The plan of a request. Fails when it cannot be built: macros that refer to themselves, an unknown
// node or pool, files with two makers, steps that wait for each other, outputs outside the target
// path and the working folder.
Qtilities::Core::Result<BuildPlan> makeBuildPlan(const BuildRequest &request);

// Names of the nodes that inputs of the steps name, each once.
QStringList nodesNamedIn(const QList<BuildStep> &steps);

// The folder that a target path stands for.
QString targetFolderOf(const QString &targetPath, const QString &workingFolder);

} // namespace MorvalenCore
