#pragma once

#include "commands/activedesign.h"
#include "commands/Subcommand.h"

#include <Qtilities/AbstractTreeItem.h>

// The flow of the commands that work on the one active item of a kind in the active design: sfile,
// sfolder, sproperty. A kind is a table of texts, rows and host operations.
namespace commands {

struct ActiveItem;

struct ItemCall : DesignCall
{
    using Item = Qtilities::CoreGui::AbstractTreeItem;

    ItemCall(const Arguments &callArguments, IDesign &activeDesign, const ActiveItem &itemKind,
             Item &activeItem)
        : DesignCall(callArguments, activeDesign),
          kind(itemKind),
          item(activeItem)
    {
    }

    const ActiveItem &kind;
    Item &item;
};

struct ActiveItemTexts
{
    QStringView usage; // The item's title, the design's name, the command word.
    QStringView none;
    QStringView several;
    QStringView gone;
    QStringView categorySet;
    QStringView categoryNotSet;
    QStringView pathSet;
    QStringView sharedPropertyOf; // What an item is called in texts about its shared properties.
};

// How many items of a kind are active, and the first of them; null when that is gone.
struct ActiveItems
{
    qsizetype count = 0;
    ItemCall::Item *first = nullptr;
};

// One kind of items.
struct ActiveItem
{
    using Item = ItemCall::Item;

    ActiveItemTexts texts;
    UsageRows usage;
    Subcommands<ItemCall> subcommands;
    ActiveItems (*active)(const IDesign &design);
    // How the item is called in the usage text, and in all other texts.
    QString (*title)(const Item &item);
    QString (*label)(const Item &item);
    // Why an item must not be changed, if so.
    std::optional<Outcome> (*refusal)(const ItemCall &call) =
        [](const ItemCall &) -> std::optional<Outcome> { return std::nullopt; };
};

// The host's list of active items of one class as the flow takes it.
template <typename Item>
ActiveItems asActiveItems(const QList<QPointer<Item>> &items)
{
    return {items.size(), items.isEmpty() ? nullptr : items.first().data()};
}

namespace activeitem {

Outcome getCategory(const ItemCall &call);
Outcome setCategory(const ItemCall &call);

// The steps that files and folders share.
Outcome getActualPath(const ItemCall &call);
Outcome setActualPath(const ItemCall &call);

// The item's actual path as texts show it.
QString pathLabel(const ActiveItem::Item &item);

} // namespace activeitem

// The command on the active item of a kind.
Outcome callActiveItem(const ActiveItem &kind, const Arguments &arguments);

} // namespace commands
