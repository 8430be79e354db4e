#pragma once

#include <Qtilities/IFactoryProvider.h>
#include <Qtilities/SharedProperty.h>

#include <QList>
#include <QObject>

namespace Qtilities::Core {

// Knows the application's objects by what they offer: shared properties attached to objects, and
// factories by name. One per process, reached through QtilitiesCoreApplication::objectManager().
class QTILITIES_EXPORT ObjectManager : public QObject
{
    Q_OBJECT

public:
    explicit ObjectManager(QObject *parent = nullptr);
    ~ObjectManager() override;

    // Whether the object has a shared property of that name, valid or not.
    static bool propertyExists(const QObject *object, const char *name);

    // The shared property of that name; an empty one when there is none.
    static SharedProperty getSharedProperty(const QObject *object, const char *name);

    // Attaches or replaces a shared property. False for a null object or a property without a
    // name, and when the object refused the change.
    static bool setSharedProperty(QObject *object, const SharedProperty &property);

    // The names of an object's shared properties, in the order of attachment.
    static QStringList sharedPropertyNames(const QObject *object);

    // Makes a factory known under its name; a later one of the same name replaces it. Not owned.
    virtual void registerFactoryProvider(Interfaces::IFactoryProvider *provider);
    virtual void unregisterFactoryProvider(Interfaces::IFactoryProvider *provider);

    // The factory of that name, or null.
    virtual Interfaces::IFactoryProvider *factoryProvider(const QString &name) const;

private:
    QList<Interfaces::IFactoryProvider *> providers;
};

} // namespace Qtilities::Core
