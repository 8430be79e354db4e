#pragma once

#include <MorvalenCore/DesignManager.h>

#include <Qtilities/IFactoryProvider.h>

namespace MorvalenCore {

// Makes designs by their type, and whatever else was registered with the design manager by its
// tag. The object manager knows it as "Design Factory". One per design manager, part of it.
class DesignFactory : public Qtilities::Core::Interfaces::IFactoryProvider
{
public:
    QString factoryName() const override;
    QStringList instanceTags() const override;
    QObject *createInstance(const Qtilities::Core::InstanceFactoryInfo &info) override;

    // False when the tag is taken, by a design type too, or empty.
    bool add(const DesignManager::ObjectFactory *factory, const QString &tag);
    // Null when nothing was registered under the tag.
    const DesignManager::ObjectFactory *find(const QString &tag) const;

private:
    struct Registered
    {
        QString tag;
        const DesignManager::ObjectFactory *factory;
    };
    QList<Registered> registered;
};

} // namespace MorvalenCore
