#pragma once

#include "disk/itempaths.h"
#include "items/DesignState.h"
#include "items/ItemTable.h"
#include "items/pathkinds.h"

namespace MorvalenCore {

// The items of a design that stand for paths: what the collections of files and folders have in
// common. One item for each actual path. Item is the class of the items, Base their public one, Id
// what names an element in the document.
template <typename Item, typename Base, typename Id>
class PathItems
{
public:
    // Takes up what the document holds.
    void load()
    {
        for (const QList elements = elementsOf(part()); const Id &element : elements) {
            const QString key = keyOf(part().path(element));
            if (!key.isEmpty())
                takeUp(key, element);
        }
    }

    void clear()
    {
        table.clear();
        gone.clear();
    }

    // By actual path or by a path of the design's folder; null when there is none.
    Base *find(const QString &path) const { return lookUp(path); }

    Qtilities::Core::Status remove(const QString &path)
    {
        Item *item = lookUp(path);
        if (!item)
            return Qtilities::Core::Status::notFound(
                QStringLiteral("The design \"%1\" does not have \"%2\"").arg(state.name(), path));
        return state.change([&] {
            removing(*item);
            RemovedItem<Id> record {item->elements(), state.document().removals(), 0};
            for (const Id &element : item->elements()) {
                removing(element);
                part().remove(element);
            }
            removed();
            record.to = state.document().removals();
            const QString key = item->actualPath();
            gone.insert(key, record);
            table.remove(key);
            return Qtilities::Core::Status();
        });
    }

    // Brings back an item that was removed, as it was in the document.
    Qtilities::Core::Status restore(const QString &path)
    {
        using Qtilities::Core::Status;
        const QString key = keyOf(path);
        const RemovedItem<Id> record = gone.value(key);
        if (record.elements.isEmpty())
            return Status::notFound(
                QStringLiteral("Nothing has removed the %1 \"%2\" from the design \"%3\"")
                    .arg(wordFor(kindOf(Id())), path, state.name()));
        return state.change([&] {
            Status status = check(path, key);
            if (status.isOk())
                status = state.document().restore(record.from, record.to);
            if (!status.isOk())
                return status;
            gone.remove(key);
            for (const Id &element : record.elements) {
                takeUp(key, element);
                restored(element);
            }
            return Status();
        });
    }

    // Gives an item another path, which the design must not have yet.
    template <typename Mover>
    Qtilities::Core::Status move(Mover *item, const QString &path)
    {
        const QString key = keyOf(path);
        if (key == item->actualPath())
            return {};
        return state.change([&] {
            Qtilities::Core::Status status = check(path, key);
            if (status.isOk())
                status = item->enterDocument();
            if (status.isOk())
                moving(*table.byKey(item->actualPath()));
            for (const Id &element : item->elements()) {
                if (status.isOk())
                    status = part().setPath(element, storedItemPath(path, state.folder()));
            }
            if (status.isOk()) {
                table.rename(item->actualPath(), key);
                item->setKnownPath(key);
            }
            return status;
        });
    }

    ActiveItems<Base> active;

protected:
    explicit PathItems(DesignState &designState) : state(designState) { }
    virtual ~PathItems() = default;

    // Called before an item is removed or gets another path, and before an element is removed from
    // the document.
    virtual void removing(Item &) { }
    virtual void moving(Item &) { }
    virtual void removing(Id) { }
    // Called when the elements of an item are gone.
    virtual void removed() { }
    // Called when an element is there again.
    virtual void restored(Id) { }

    // The one flow of adding: makeElement(text) writes the element of an accepted path into the
    // document, under the text to keep, and returns it.
    template <typename MakeElement>
    Qtilities::Core::Result<Base *> addItem(const QString &path, MakeElement makeElement)
    {
        Item *item = nullptr;
        const Qtilities::Core::Status status = state.change([&] {
            const QString key = keyOf(path);
            const Qtilities::Core::Status accepted = check(path, key);
            if (!accepted.isOk())
                return accepted;
            const Qtilities::Core::Result<Id> element =
                makeElement(storedItemPath(path, state.folder()));
            if (element.isOk())
                item = takeUp(key, element.value());
            return element.status();
        });
        if (!status.isOk())
            return status;
        return item;
    }

    auto &part() const { return partOf(state.document(), Id()); }

    Item *lookUp(const QString &path) const
    {
        Item *item = table.byKey(keyOf(path));
        // A share of Windows is not the same as a path from the root, and what builds make may lie
        // below a folder whose name holds a backslash.
        return item || !path.startsWith(u'/') ? item : table.byKey(path);
    }

    DesignState &state;
    ItemTable<Item, Id> table;

private:
    QString keyOf(const QString &path) const { return actualItemPath(path, state.folder()); }

    Item *takeUp(const QString &key, Id element)
    {
        return table.insert(key, element, [&] {
            return std::make_shared<Item>(static_cast<typename Item::Owner &>(*this), state, key);
        });
    }

    // Whether the design takes an item of that path.
    Qtilities::Core::Status check(const QString &path, const QString &key) const
    {
        using Qtilities::Core::Status;
        const auto word = wordFor(kindOf(Id()));
        if (!state.isPlaced())
            return Status::notFound(
                QStringLiteral("The design \"%1\" has no working folder yet").arg(state.name()));
        if (path.isEmpty())
            return Status::invalidArgument(
                QStringLiteral("The path of a %1 cannot be empty").arg(word));
        if (table.byKey(key))
            return Status::alreadyExists(
                QStringLiteral("The design \"%1\" has the %2 \"%3\" already")
                    .arg(state.name(), word, key));
        return {};
    }

    QHash<QString, RemovedItem<Id>> gone;
};

} // namespace MorvalenCore
