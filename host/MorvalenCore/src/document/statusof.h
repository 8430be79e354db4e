#pragma once

#include <Qtilities/Status.h>

namespace MorvalenCore {

// What a document answers to an edit, call(error), as a status.
template <typename Call>
Qtilities::Core::Status statusOf(Call call)
{
    QString reason;
    return call(&reason) ? Qtilities::Core::Status()
                         : Qtilities::Core::Status::invalidArgument(reason);
}

// The same for one that answers the element that it has added.
template <typename Id, typename Call>
Qtilities::Core::Result<Id> added(Call call)
{
    QString reason;
    const Id element = call(&reason);
    if (!element)
        return Qtilities::Core::Status::invalidArgument(reason);
    return element;
}

} // namespace MorvalenCore
