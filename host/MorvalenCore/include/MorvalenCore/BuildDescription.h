#pragma once

#include <MorvalenCore/BuildMacro.h>
#include <MorvalenCore/BuildStep.h>

#include <QList>

namespace MorvalenCore {

// A build configuration as its design keeps it. An empty target path means the default.
struct BuildDescription
{
    QString name;
    QString targetPath;
    QList<BuildMacro> macros;
    // As they are listed, which may not be the order of execution.
    QList<BuildStep> steps;

    bool operator==(const BuildDescription &) const = default;
};

} // namespace MorvalenCore
