#pragma once

#include "commands/activedesign.h"
#include "commands/Subcommand.h"

#include <Qtilities/AbstractTreeItem.h>

// The flow of the commands that work on all items of one kind in the active design: files, folders,
// properties. A kind is a table of texts, rows and host operations; the steps are the same for all.
namespace commands {

struct Collection;

struct CollectionCall : DesignCall
{
    CollectionCall(const Arguments &callArguments, IDesign &activeDesign,
                   const Collection &itemKind)
        : DesignCall(callArguments, activeDesign),
          kind(itemKind)
    {
    }

    const Collection &kind;
};

// What the steps answer. The first value of a text about one item is its path or name as typed,
// its last one the design's name; a kind leaves out what it cannot come to.
struct CollectionTexts
{
    QStringView usage;
    QStringView notFound;
    QStringView activated; // The design's name, then the item's.
    QStringView added;
    QStringView notAdded;
    QStringView removed;
    QStringView notRemoved;
    QStringView notRemovable;
    QStringView erased;
    QStringView notErasedFromDisk;
    QStringView notErasedFromDesign;
    QStringView noneToRemove;
    QStringView noneToRemoveUnderNode;
    QStringView allRemoved;
    QStringView someRemoved; // Removed, found, design.
    QStringView noneToErase;
    QStringView noneToEraseUnderNode;
    QStringView allErased;
    QStringView someErased; // Deleted, found, design.
    QStringView someErasedFewerRemoved; // Deleted, found, removed, design.
    QStringView noneListed;
    QStringView noneListedUnderNode;
    QStringView noSuchNode;
};

// One kind of items. The operations are the host's; key is the path or name by which the design
// knows an item.
struct Collection
{
    using Item = Qtilities::CoreGui::AbstractTreeItem;

    CollectionTexts texts;
    UsageRows usage;
    Subcommands<CollectionCall> subcommands;
    Item *(*find)(const IDesign &design, const QString &key);
    void (*setActive)(IDesign &design, Item *item);
    Item *(*add)(IDesign &design, const QString &key, QString *error);
    bool (*isRemovable)(const Item &item) = [](const Item &) { return true; };
    bool (*remove)(IDesign &design, const QString &key);
    bool (*removeFromComputer)(Item &item) = nullptr;
    QList<Item *> (*all)(const IDesign &design, const QString &node);
    QString (*key)(const Item &item);
    QString (*shown)(const Item &item);
    bool listsNoneAsError = true;
};

// The host's list of items of one class as the flow takes it.
template <typename Item>
QList<Collection::Item *> asItems(const QList<Item *> &items)
{
    return {items.cbegin(), items.cend()};
}

namespace collection {

Outcome setActive(const CollectionCall &call);
Outcome add(const CollectionCall &call);
Outcome remove(const CollectionCall &call);
Outcome erase(const CollectionCall &call);
Outcome removeAll(const CollectionCall &call);
Outcome eraseAll(const CollectionCall &call);
Outcome contains(const CollectionCall &call);
Outcome category(const CollectionCall &call);
Outcome list(const CollectionCall &call);

// The answer for an item that the design does not have.
Outcome notFound(const CollectionCall &call);

} // namespace collection

// The command on all items of a kind.
Outcome callCollection(const Collection &kind, const Arguments &arguments);

} // namespace commands
