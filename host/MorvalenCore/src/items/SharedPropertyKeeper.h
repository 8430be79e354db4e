#pragma once

#include "document/DocumentSharedValues.h"

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QList>

#include <optional>

class QObject;

namespace MorvalenCore {

class DesignState;

// Keeps the shared properties of one item, which the object manager keeps as dynamic properties of
// its object, and the document alike. The document is the truth: a change that the design refuses
// is put back. Part of its item.
class SharedPropertyKeeper
{
public:
    SharedPropertyKeeper(QObject *owner, DesignState &designState) : item(owner), state(designState)
    {
    }

    // Gives the object the shared properties that the document has for an element of the item.
    void load(ItemId element);

    // Whether a dynamic property that was set is a shared one that the document should keep.
    bool isNew(const QByteArray &key) const;

    // Called when a dynamic property of the object was set or removed; elements are those of the
    // item, the first one takes new properties.
    void propertyChanged(const QByteArray &key, const QList<ItemId> &elements);

private:
    std::optional<SharedValue> documented(const QString &name, const QList<ItemId> &elements) const;
    Qtilities::Core::Status store(const QString &name, const QList<ItemId> &elements);
    void putBack(const QString &name, const QList<ItemId> &elements);

    QObject *item;
    DesignState &state;
    bool ownChange = false;
};

} // namespace MorvalenCore
