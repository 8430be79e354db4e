#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <QString>

namespace MorvalenCore {

// A named text that commands of a build configuration can refer to.
struct BuildMacro
{
    QString name;
    QString value;

    bool operator==(const BuildMacro &) const = default;
};

} // namespace MorvalenCore
