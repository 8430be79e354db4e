#include "commands/collection.h"

#include "commands/conventions.h"
#include "commands/ExecBracket.h"

#include <Qtilities/categorytext.h>

namespace commands {

namespace collection {

namespace {

using Item = Collection::Item;

// Items may go while others are removed.
using GuardedItems = QList<QPointer<Item>>;

Item *find(const CollectionCall &call) { return call.kind.find(call.design, call.arguments[2]); }

// The common form of a text about one item.
QString about(QStringView text, const CollectionCall &call)
{
    return fill(text, {call.arguments[2], call.designName});
}

// The node that limits a call, empty for the whole design. Only the exact number of arguments makes
// one: "files list a b" lists everything.
QString nodeOf(const CollectionCall &call)
{
    return call.arguments.count() == 3 ? call.arguments[2] : QString();
}

// A text about no items, with the node that has none.
QString none(const CollectionCall &call, QStringView inDesign, QStringView underNode)
{
    const QString node = nodeOf(call);
    return node.isEmpty() ? fill(inDesign, {call.designName})
                          : fill(underNode, {node, call.designName});
}

bool removeBracketed(const CollectionCall &call, const DesignGuard &alive, const QString &key)
{
    ExecBracket bracket;
    return alive && call.kind.remove(call.design, key);
}

struct Erased
{
    int fromDisk = 0;
    int fromDesign = 0;
};

// What cannot be deleted from disk stays in the design; every item is tried.
Erased eraseEach(const CollectionCall &call, const GuardedItems &items)
{
    const DesignGuard alive(call.design);
    Erased erased;
    ExecBracket bracket;
    for (const QPointer<Item> &item : items) {
        if (!item)
            continue;
        const QString key = call.kind.key(*item);
        if (!call.kind.removeFromComputer(*item))
            continue;
        ++erased.fromDisk;
        if (alive && call.kind.remove(call.design, key))
            ++erased.fromDesign;
    }
    return erased;
}

} // namespace

Outcome notFound(const CollectionCall &call)
{
    return Outcome::error(about(call.kind.texts.notFound, call));
}

Outcome setActive(const CollectionCall &call)
{
    Item *item = find(call);
    if (!item)
        return notFound(call);
    {
        ExecBracket bracket;
        call.kind.setActive(call.design, item);
    }
    return Outcome::ok(fill(call.kind.texts.activated, {call.designName, call.arguments[2]}));
}

Outcome add(const CollectionCall &call)
{
    const QString key = call.arguments[2];
    QString error;
    bool added = false;
    {
        ExecBracket bracket;
        added = call.kind.add(call.design, key, &error) != nullptr;
    }
    return added ? Outcome::ok(about(call.kind.texts.added, call))
                 : Outcome::error(fill(call.kind.texts.notAdded, {key, call.designName, error}));
}

Outcome remove(const CollectionCall &call)
{
    const Item *item = find(call);
    if (!item)
        return notFound(call);
    if (!call.kind.isRemovable(*item))
        return Outcome::error(about(call.kind.texts.notRemovable, call));
    const bool removed = removeBracketed(call, DesignGuard(call.design), call.kind.key(*item));
    return removed ? Outcome::ok(about(call.kind.texts.removed, call))
                   : Outcome::error(about(call.kind.texts.notRemoved, call));
}

// Deletes from disk first, so that the design keeps what could not be deleted.
Outcome erase(const CollectionCall &call)
{
    Item *item = find(call);
    if (!item)
        return notFound(call);
    const DesignGuard alive(call.design);
    const QString key = call.kind.key(*item);
    if (!call.kind.removeFromComputer(*item))
        return Outcome::error(about(call.kind.texts.notErasedFromDisk, call));
    return removeBracketed(call, alive, key)
        ? Outcome::ok(about(call.kind.texts.erased, call))
        : Outcome::error(about(call.kind.texts.notErasedFromDesign, call));
}

Outcome removeAll(const CollectionCall &call)
{
    const CollectionTexts &texts = call.kind.texts;
    const QList<Item *> found = call.kind.all(call.design, nodeOf(call));
    const GuardedItems items(found.cbegin(), found.cend());
    if (items.isEmpty())
        return Outcome::error(none(call, texts.noneToRemove, texts.noneToRemoveUnderNode));

    const DesignGuard alive(call.design);
    int count = 0;
    {
        ExecBracket bracket;
        for (const QPointer<Item> &item : items) {
            if (item && alive && call.kind.remove(call.design, call.kind.key(*item)))
                ++count;
        }
    }
    const QString removed = QString::number(count);
    if (count == items.size())
        return Outcome::ok(fill(texts.allRemoved, {removed, call.designName}));
    return Outcome::error(
        fill(texts.someRemoved, {removed, QString::number(items.size()), call.designName}));
}

Outcome eraseAll(const CollectionCall &call)
{
    const CollectionTexts &texts = call.kind.texts;
    const QList<Item *> found = call.kind.all(call.design, nodeOf(call));
    const GuardedItems items(found.cbegin(), found.cend());
    if (items.isEmpty())
        return Outcome::error(none(call, texts.noneToErase, texts.noneToEraseUnderNode));

    const Erased erased = eraseEach(call, items);
    const QString deleted = QString::number(erased.fromDisk);
    const QString removed = QString::number(erased.fromDesign);
    const QString total = QString::number(items.size());
    // Deleting all from disk is a success even when some of them stayed in the design.
    if (erased.fromDisk == items.size())
        return Outcome::ok(fill(texts.allErased, {removed, call.designName}));
    if (erased.fromDisk == erased.fromDesign)
        return Outcome::error(fill(texts.someErased, {deleted, total, call.designName}));
    return Outcome::error(
        fill(texts.someErasedFewerRemoved, {deleted, total, removed, call.designName}));
}

Outcome contains(const CollectionCall &call) { return Outcome::found(find(call) != nullptr); }

Outcome category(const CollectionCall &call)
{
    const Item *item = find(call);
    return item ? Outcome::ok(textOf(item->category())) : notFound(call);
}

Outcome list(const CollectionCall &call)
{
    const CollectionTexts &texts = call.kind.texts;
    const QString node = nodeOf(call);
    const QList<Item *> items = call.kind.all(call.design, node);
    if (!items.isEmpty()) {
        QStringList shown;
        shown.reserve(items.size());
        for (const Item *item : items)
            shown.append(call.kind.shown(*item));
        return Outcome::ok(stringListToTclList(shown));
    }
    if (!node.isEmpty() && !call.design.hasNode(node))
        return Outcome::error(fill(texts.noSuchNode, {node, call.designName}));
    const QString text = none(call, texts.noneListed, texts.noneListedUnderNode);
    return call.kind.listsNoneAsError ? Outcome::error(text) : Outcome::ok(text);
}

} // namespace collection

Outcome callCollection(const Collection &kind, const Arguments &arguments)
{
    return onActiveDesign([&kind, &arguments](IDesign &design) {
        const CollectionCall call(arguments, design, kind);
        return dispatch(kind.subcommands, call).withUsage([&call] {
            return usageText(call.kind.texts.usage, {call.designName, call.arguments[0]},
                             call.kind.usage);
        });
    });
}

} // namespace commands
