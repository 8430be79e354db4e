#pragma once

#include <QObject>

namespace Qtilities::Core::Interfaces {

// What every interface of the framework derives from: the way back to the object behind it.
class IObjectBase
{
public:
    virtual ~IObjectBase() = default;

    // The object that implements the interface; never null.
    virtual QObject *objectBase() = 0;
    virtual const QObject *objectBase() const = 0;
};

} // namespace Qtilities::Core::Interfaces
