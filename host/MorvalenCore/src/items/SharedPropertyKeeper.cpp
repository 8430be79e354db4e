#include "items/SharedPropertyKeeper.h"

#include "items/DesignState.h"

#include <Qtilities/ObjectManager.h>
#include <Qtilities/statuslog.h>
#include <Qtilities/utf8text.h>

#include <QScopedValueRollback>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::SharedProperty;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

namespace {

void give(QObject *object, const SharedValue &shared)
{
    QVariant value = QtilitiesProperty::constructVariant(shared.type, shared.value);
    if (!value.isValid())
        value = shared.value;
    ObjectManager::setSharedProperty(object,
                                     SharedProperty(shared.name.toUtf8().constData(), value));
}

} // namespace

void SharedPropertyKeeper::load(ItemId element)
{
    const QScopedValueRollback mine(ownChange, true);
    const QList values = state.document().sharedValues().values(element);
    for (const SharedValue &shared : values) {
        if (!ObjectManager::propertyExists(item, shared.name.toUtf8().constData()))
            give(item, shared);
    }
}

bool SharedPropertyKeeper::isNew(const QByteArray &key) const
{
    return !ownChange && ObjectManager::propertyExists(item, key.constData());
}

void SharedPropertyKeeper::propertyChanged(const QByteArray &key, const QList<ItemId> &elements)
{
    const QString name = Qtilities::Core::textOfUtf8(key);
    const bool isShared = ObjectManager::propertyExists(item, key.constData());
    if (ownChange || (!isShared && !documented(name, elements)))
        return;
    if (elements.isEmpty()) {
        putBack(name, elements);
        return;
    }
    const Status stored = state.change([&] { return store(name, elements); });
    if (!logStatus(stored, Logger::Warning))
        putBack(name, elements);
}

std::optional<SharedValue> SharedPropertyKeeper::documented(const QString &name,
                                                            const QList<ItemId> &elements) const
{
    for (const ItemId &element : elements) {
        for (const SharedValue &shared : state.document().sharedValues().values(element)) {
            if (shared.name == name)
                return shared;
        }
    }
    return std::nullopt;
}

Status SharedPropertyKeeper::store(const QString &name, const QList<ItemId> &elements)
{
    DocumentSharedValues &values = state.document().sharedValues();
    const QByteArray key = name.toUtf8();
    if (ObjectManager::propertyExists(item, key.constData())) {
        const QVariant value = ObjectManager::getSharedProperty(item, key.constData()).value();
        if (!value.isValid())
            return Status::invalidArgument(
                u"The shared property \"%1\" has no value to keep"_s.arg(name));
        return values.set(elements.first(),
                          {name, QtilitiesProperty::typeName(value), value.toString()});
    }
    for (const ItemId &element : elements)
        values.remove(element, name);
    return {};
}

void SharedPropertyKeeper::putBack(const QString &name, const QList<ItemId> &elements)
{
    const QScopedValueRollback mine(ownChange, true);
    if (const std::optional<SharedValue> shared = documented(name, elements))
        give(item, *shared);
    else
        item->setProperty(name.toUtf8().constData(), QVariant());
}

} // namespace MorvalenCore
