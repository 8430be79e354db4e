#pragma once

#include <MorvalenCore/MorvalenCoreExport.h>

#include <QString>

namespace MorvalenCore {

// What the host knows of a script type: which factory makes the actions that run it.
struct LinkedScriptParameters
{
    QString scriptType;
    QString factoryTag;
    QString instanceTag;

    bool operator==(const LinkedScriptParameters &) const = default;
};

} // namespace MorvalenCore
