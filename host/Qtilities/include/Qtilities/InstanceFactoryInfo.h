#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QString>

namespace Qtilities::Core {

// Names an object to be made: the factory that makes it, what it makes, and the object's name.
struct InstanceFactoryInfo
{
    QString factoryTag;
    QString instanceTag;
    QString instanceName;

    bool operator==(const InstanceFactoryInfo &) const = default;
};

} // namespace Qtilities::Core
