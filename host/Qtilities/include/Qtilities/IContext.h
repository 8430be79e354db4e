#pragma once

#include <Qtilities/IObjectBase.h>

#include <QString>

namespace Qtilities::Core::Interfaces {

// A part of the application that has a context of its own: its name and its help page.
class IContext : virtual public IObjectBase
{
public:
    // The context's unique name, such as "Context.Designs".
    virtual QString contextString() const = 0;

    // The id of the context's help page; empty when it has none.
    virtual QString contextHelpId() const = 0;
};

} // namespace Qtilities::Core::Interfaces
