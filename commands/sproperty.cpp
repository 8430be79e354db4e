#include "commands/activeitem.h"
#include "commands/commands.h"
#include "commands/manuals.h"
#include "commands/sharedproperties.h"

#include <MorvalenCore/DesignProperty.h>

using commands::ActiveItem;
using commands::IDesign;
using commands::ItemCall;
using commands::Outcome;
using MorvalenCore::DesignProperty;

namespace {

using Item = ActiveItem::Item;

constexpr struct
{
    QStringView readOnly = u"Active design property \"%1\" is read only, you cannot modify it";
    QStringView renamed = u"Successfully renamed property \"%1\". Changed to \"%2\"";
} texts;

// The read-only word of "property set" is optional, though no apostrophe says so.
constexpr commands::UsageRow usageRows[] = {
    {"get name", "Get name the active design property"},
    {"set name new_name", "Sets the name the active design property"},
    {"get category", "Get the category of the active design property"},
    {"set category new_value", "Set the category of the active design property"},
    {"property exists name",
     "Check if the specified property exists on the active design property"},
    {"property remove name", "Remove the specified property on the active design property"},
    {"property get name", "Get the value of the specified property on the active design property"},
    {"property set name type value read_only",
     "Sets the value of the specified property on the active design property. Creates it if it "
     "does not exist"},
};

QString name(const Item &item) { return item.getName(); }

std::optional<Outcome> refusal(const ItemCall &call)
{
    if (!static_cast<const DesignProperty &>(call.item).propertyData().isReadOnly())
        return std::nullopt;
    return Outcome::error(commands::fill(texts.readOnly, {name(call.item)}));
}

// Not bracketed, and never an error: the answer tells which name the property has now.
Outcome setName(const ItemCall &call)
{
    const QPointer<Item> alive(&call.item);
    const QString before = name(call.item);
    call.item.setName(call.arguments[3]);
    const QString after = alive ? name(*alive) : QString();
    return Outcome::ok(commands::fill(texts.renamed, {before, after}));
}

constexpr commands::Subcommand<ItemCall> getItems[] = {
    {"name", commands::anyArguments,
     [](const ItemCall &call) { return Outcome::ok(name(call.item)); }},
    {"category", commands::anyArguments, commands::activeitem::getCategory},
};

constexpr commands::Subcommand<ItemCall> setItems[] = {
    {"name", commands::anyArguments, setName},
    {"category", commands::anyArguments, commands::activeitem::setCategory},
};

// That the property is read-only comes before everything else, the number of arguments included.
Outcome set(const ItemCall &call)
{
    if (const std::optional<Outcome> refused = refusal(call))
        return *refused;
    if (!commands::moreThan(3).accepts(call.arguments.count()))
        return Outcome::usage();
    return commands::dispatch<ItemCall>(setItems, call, 2);
}

constexpr commands::Subcommand<ItemCall> subcommands[] = {
    {"get", commands::moreThan(2), nullptr, getItems},
    {"set", commands::anyArguments, set, setItems},
    {"property", commands::moreThan(3), nullptr, commands::sharedPropertyActions},
};

constexpr ActiveItem activeProperty = {
    .texts =
        {
            .usage = u"Performs actions on property \"%1\" in design \"%2\".\nUsage: %3 args\n",
            .none = u"No active property in design \"%1\"",
            .several = u"Multiple properties are active in design \"%1\"",
            .gone = u"Failed to find active property in design \"%1\"",
            .categorySet = u"Successfully changed category on property \"%1\"",
            .categoryNotSet = u"Failed to change category on property \"%1\"",
            .pathSet = {},
            .sharedPropertyOf = u"design property",
        },
    .usage = usageRows,
    .subcommands = subcommands,
    .active =
        [](const IDesign &design) { return commands::asActiveItems(design.activeProperties()); },
    .title = name,
    .label = name,
    .refusal = refusal,
};

} // namespace

const commands::Manual commands::propertyManual {usageRows,
                                                 [] { return forms<ItemCall>(subcommands); }};

int CallProperty(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const commands::Arguments &arguments) {
        return commands::callActiveItem(activeProperty, arguments);
    });
}
