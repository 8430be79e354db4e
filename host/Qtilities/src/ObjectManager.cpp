#include <Qtilities/ObjectManager.h>
#include <Qtilities/utf8text.h>

namespace Qtilities::Core {

ObjectManager::ObjectManager(QObject *parent) : QObject(parent) { }

ObjectManager::~ObjectManager() = default;

bool ObjectManager::propertyExists(const QObject *object, const char *name)
{
    return object && name
        && object->property(name).metaType() == QMetaType::fromType<SharedProperty>();
}

SharedProperty ObjectManager::getSharedProperty(const QObject *object, const char *name)
{
    return propertyExists(object, name) ? object->property(name).value<SharedProperty>()
                                        : SharedProperty();
}

bool ObjectManager::setSharedProperty(QObject *object, const SharedProperty &property)
{
    const QByteArray name = property.name().toUtf8();
    if (!object || name.isEmpty() || name.contains('\0'))
        return false;
    // A declared property belongs to the object's class and is not ours to write.
    if (object->metaObject()->indexOfProperty(name.constData()) >= 0)
        return false;
    const QVariant wanted = QVariant::fromValue(property);
    object->setProperty(name.constData(), wanted);
    // An object that refuses puts the old value back. The same payload is the same value, even
    // where a value does not compare equal to itself.
    const QVariant kept = object->property(name.constData());
    return kept.constData() == wanted.constData() || kept == wanted;
}

QStringList ObjectManager::sharedPropertyNames(const QObject *object)
{
    QStringList names;
    if (!object)
        return names;
    for (const QByteArray &name : object->dynamicPropertyNames()) {
        if (propertyExists(object, name.constData()))
            names.append(textOfUtf8(name));
    }
    return names;
}

void ObjectManager::registerFactoryProvider(Interfaces::IFactoryProvider *provider)
{
    if (!provider)
        return;
    const QString name = provider->factoryName();
    providers.removeIf([&](const Interfaces::IFactoryProvider *known) {
        return known == provider || known->factoryName() == name;
    });
    providers.append(provider);
}

void ObjectManager::unregisterFactoryProvider(Interfaces::IFactoryProvider *provider)
{
    providers.removeAll(provider);
}

Interfaces::IFactoryProvider *ObjectManager::factoryProvider(const QString &name) const
{
    for (Interfaces::IFactoryProvider *provider : providers) {
        if (provider->factoryName() == name)
            return provider;
    }
    return nullptr;
}

} // namespace Qtilities::Core
