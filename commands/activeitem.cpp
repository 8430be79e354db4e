#include "commands/activeitem.h"

#include "commands/conventions.h"
#include "commands/ExecBracket.h"

#include <Qtilities/categorytext.h>
#include <Qtilities/TreeFileItem.h>

using Qtilities::CoreGui::TreeFileItem;

namespace commands {

namespace activeitem {

namespace {

QString labelOf(const ItemCall &call) { return call.kind.label(call.item); }

} // namespace

QString pathLabel(const ActiveItem::Item &item)
{
    return preparePath(static_cast<const TreeFileItem &>(item).actualPath());
}

Outcome getActualPath(const ItemCall &call) { return Outcome::ok(pathLabel(call.item)); }

// Not bracketed, and never an error: the answer tells which path the item has now.
Outcome setActualPath(const ItemCall &call)
{
    const QPointer<ActiveItem::Item> alive(&call.item);
    const QString before = pathLabel(call.item);
    static_cast<TreeFileItem &>(call.item).setActualPath(call.arguments[3]);
    const QString after = alive ? pathLabel(*alive) : QString();
    return Outcome::ok(fill(call.kind.texts.pathSet, {before, after}));
}

Outcome getCategory(const ItemCall &call) { return Outcome::ok(textOf(call.item.category())); }

Outcome setCategory(const ItemCall &call)
{
    const QString label = labelOf(call);
    bool set = false;
    {
        ExecBracket bracket;
        set = call.item.setCategory(Qtilities::Core::categoryFrom(call.arguments[3]));
    }
    return set ? Outcome::ok(fill(call.kind.texts.categorySet, {label}))
               : Outcome::error(fill(call.kind.texts.categoryNotSet, {label}));
}

} // namespace activeitem

namespace {

// An active item, alone and still there, on which the command is run.
Outcome callOn(const ItemCall &call)
{
    return dispatch(call.kind.subcommands, call).withUsage([&call] {
        return usageText(call.kind.texts.usage,
                         {call.kind.title(call.item), call.designName, call.arguments[0]},
                         call.kind.usage);
    });
}

} // namespace

Outcome callActiveItem(const ActiveItem &kind, const Arguments &arguments)
{
    return onActiveDesign([&kind, &arguments](IDesign &design) {
        const ActiveItems active = kind.active(design);
        if (active.count == 1 && active.first)
            return callOn(ItemCall(arguments, design, kind, *active.first));
        const QStringView text = active.count == 0 ? kind.texts.none
            : active.count > 1                     ? kind.texts.several
                                                   : kind.texts.gone;
        return Outcome::error(fill(text, {design.name()}));
    });
}

} // namespace commands
