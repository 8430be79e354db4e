#pragma once

#include "items/ArrivalOrder.h"

#include <QHash>
#include <QList>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QVarLengthArray>

#include <memory>

namespace MorvalenCore {

// The elements of the document that one item stands for; nearly always one.
template <typename Id>
using Elements = QVarLengthArray<Id, 1>;

// The items of one kind in a design, found by their key (a path or name) and by the elements of
// the document that they stand for. Several elements may stand for one item; it goes with the last
// of them. An item may stand for none, and get one later. Everything but the lists takes about the
// same time however many items there are.
template <typename Item, typename Id>
class ItemTable
{
public:
    Item *byKey(const QString &key) const { return keys.value(key); }
    Item *byId(Id id) const
    {
        const auto item = ids.constFind(id);
        return item == ids.cend() ? nullptr : item->get();
    }

    // Each item once, in the order of the ids.
    template <typename Base = Item>
    QList<Base *> inOrder(const QList<Id> &order) const
    {
        QList<Base *> list;
        list.reserve(order.size());
        QSet<const Item *> seen;
        for (const Id &id : order) {
            Item *item = byId(id);
            if (item && item->elements().size() > 1) {
                if (seen.contains(item))
                    continue;
                seen.insert(item);
            }
            if (item)
                list.append(item);
        }
        return list;
    }

    // Those that stand for no element, in the order in which they came.
    bool hasWithoutElements() const { return !loose.isEmpty(); }
    template <typename Base = Item>
    QList<Base *> withoutElements() const
    {
        QList<Base *> list;
        for (const QList items = loose.values(); const std::shared_ptr<Item> &item : items)
            list.append(item.get());
        return list;
    }

    // Takes up an item that stands for no element yet, under a key that no other has.
    Item *insert(const QString &key, std::shared_ptr<Item> item)
    {
        keys.insert(key, item.get());
        loose.insert(key, item);
        return item.get();
    }

    // Takes up an element: one more of the item of that key, or of a new one that make() gives.
    template <typename Make>
    Item *insert(const QString &key, Id id, Make make)
    {
        Item *&item = keys[key];
        std::shared_ptr<Item> owner = !item ? make()
            : item->elements().isEmpty()    ? loose.take(key)
                                            : ids.value(item->elements().first());
        item = owner.get();
        item->addElement(id);
        ids.insert(id, std::move(owner));
        return item;
    }

    void rename(const QString &oldKey, const QString &newKey)
    {
        if (Item *item = keys.take(oldKey))
            keys.insert(newKey, item);
    }

    // The item stands for another element in place of one.
    void replace(Id oldId, Id newId)
    {
        const std::shared_ptr<Item> item = ids.take(oldId);
        item->replaceElement(oldId, newId);
        ids.insert(newId, item);
    }

    // Destroys the item.
    void remove(const QString &key)
    {
        Item *item = keys.take(key);
        const Elements<Id> elements = item->elements();
        for (const Id &id : elements)
            ids.remove(id);
        loose.take(key);
    }

    void clear()
    {
        keys.clear();
        ids.clear();
        loose.clear();
    }

private:
    QHash<QString, Item *> keys;
    QHash<Id, std::shared_ptr<Item>> ids;
    ArrivalOrder<QString, std::shared_ptr<Item>> loose;
};

// What an item that was removed stood for, and the count of the document's removals before and
// after.
template <typename Id>
struct RemovedItem
{
    Elements<Id> elements;
    std::size_t from = 0;
    std::size_t to = 0;
};

// The active items of one kind. Those that were destroyed drop out.
template <typename Item>
class ActiveItems
{
public:
    QList<QPointer<Item>> get() const
    {
        items.removeIf([](const QPointer<Item> &item) { return item.isNull(); });
        return items;
    }
    void set(const QList<QPointer<Item>> &active) { items = active; }

private:
    mutable QList<QPointer<Item>> items;
};

} // namespace MorvalenCore
