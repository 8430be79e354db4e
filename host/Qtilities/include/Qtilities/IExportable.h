#pragma once

#include <Qtilities/InstanceFactoryInfo.h>
#include <Qtilities/IObjectBase.h>

namespace Qtilities::Core::Interfaces {

// An object that can be made again from what it exports.
class IExportable : virtual public IObjectBase
{
public:
    // The factory and tag that make such an object, and this object's name.
    virtual InstanceFactoryInfo instanceFactoryInfo() const = 0;
};

} // namespace Qtilities::Core::Interfaces
