#pragma once

#include <Qtilities/IObjectBase.h>

namespace Qtilities::Core::Interfaces {

// An object that knows whether it has changed since it was last saved.
class IModificationNotifier : virtual public IObjectBase
{
public:
    virtual bool isModified() const = 0;
    virtual void setModificationState(bool modified) = 0;
};

} // namespace Qtilities::Core::Interfaces
