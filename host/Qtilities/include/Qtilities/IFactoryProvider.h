#pragma once

#include <Qtilities/InstanceFactoryInfo.h>

#include <QObject>
#include <QStringList>

namespace Qtilities::Core::Interfaces {

// A factory that the object manager knows by name.
class IFactoryProvider
{
public:
    virtual ~IFactoryProvider() = default;

    // The name by which ObjectManager::factoryProvider finds it.
    virtual QString factoryName() const = 0;

    // The instance tags that createInstance accepts, in their order of registration.
    virtual QStringList instanceTags() const = 0;

    // A new object, owned by the caller; null when the instance tag is not known.
    virtual QObject *createInstance(const InstanceFactoryInfo &info) = 0;
};

} // namespace Qtilities::Core::Interfaces
