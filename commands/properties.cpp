#include "commands/collection.h"
#include "commands/commands.h"
#include "commands/ExecBracket.h"
#include "commands/manuals.h"

#include <MorvalenCore/DesignProperty.h>

using namespace Qt::Literals::StringLiterals;
using commands::Collection;
using commands::CollectionCall;
using commands::fill;
using commands::IDesign;
using commands::Outcome;
using MorvalenCore::DesignProperty;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::QtilitiesProperty;

namespace {

using Item = Collection::Item;

constexpr struct
{
    // Says "on active design" where all others say "on design".
    QStringView tooFewArguments =
        u"You did not provide enough parameters to set property \"%1\" on "
        "active design \"%2\"";
    QStringView badReadOnlyWord =
        u"Making a property read only is specified using \"true\" or \"false\" (Case Insensitive)";
    QStringView badValue = u"Failed to set property \"%1\" on design \"%2\". Property type and "
                           "value combination is invalid";
    QStringView updated = u"Successfully updated property \"%1\" on design \"%2\"";
    QStringView set = u"Successfully set property \"%1\" on design \"%2\"";
    QStringView notSet = u"Failed to set property \"%1\" on design \"%2\": %3";
} setTexts;

// The form "add name" is understood as well.
constexpr commands::UsageRow usageRows[] = {
    {"set_active name", "Set specified property active"},
    {"set name type value 'read_only", "Set specified property on active design"},
    {"remove name", "Remove specified property"},
    {"remove_all", "Remove all properties in the active design"},
    {"contains name", "Check if a property exists in the design"},
    {"category name", "Get the category of specified property in the design"},
    {"list", "List all properties in the design"},
};

Outcome addNew(const CollectionCall &call, const QVariant &value)
{
    const QString name = call.arguments[2];
    QString error;
    bool added = false;
    {
        commands::ExecBracket bracket;
        added = call.design.addProperty(name, QtilitiesCategory(), value, false, &error) != nullptr;
    }
    return added ? Outcome::ok(fill(setTexts.set, {name, call.designName}))
                 : Outcome::error(fill(setTexts.notSet, {name, call.designName, error}));
}

// The read-only word is checked and then has no effect.
Outcome set(const CollectionCall &call)
{
    const QString name = call.arguments[2];
    if (call.arguments.count() <= 4)
        return Outcome::error(fill(setTexts.tooFewArguments, {name, call.designName}));
    if (call.arguments.count() == 6 && !commands::truthWord(call.arguments[5]))
        return Outcome::error(setTexts.badReadOnlyWord.toString());
    const QVariant value =
        QtilitiesProperty::constructVariant(call.arguments[3], call.arguments[4]);
    if (!value.isValid())
        return Outcome::error(fill(setTexts.badValue, {name, call.designName}));
    DesignProperty *property = call.design.propertyByName(name);
    if (!property)
        return addNew(call, value);
    property->setValue(value);
    return Outcome::ok(fill(setTexts.updated, {name, call.designName}));
}

constexpr commands::Subcommand<CollectionCall> subcommands[] = {
    {"set_active", commands::moreThan(2), commands::collection::setActive},
    {"add", commands::moreThan(2), commands::collection::add},
    {"remove", commands::moreThan(2), commands::collection::remove},
    {"remove_all", commands::exactly(2), commands::collection::removeAll},
    {"contains", commands::moreThan(2), commands::collection::contains},
    {"category", commands::moreThan(2), commands::collection::category},
    {"list", commands::exactly(2), commands::collection::list},
    {"set", commands::anyArguments, set},
};

QString name(const Item &item) { return item.getName(); }

constexpr Collection properties = {
    .texts =
        {
            .usage = u"Performs actions on properties in design \"%1\".\nUsage: %2 args\n",
            .notFound = u"Property \"%1\" does not match any properties in design \"%2\"",
            .activated = u"Successfully changed active property in design \"%1\" to \"%2\"",
            .added = u"Successfully added property \"%1\" to design \"%2\"",
            .notAdded = u"Failed to add property \"%1\" to design \"%2\": %3",
            .removed = u"Successfully removed property \"%1\" from design \"%2\"",
            .notRemoved = u"Failed to remove property \"%1\" from design \"%2\": ",
            .notRemovable = u"Property \"%1\" is non-removable only, you cannot remove it",
            .erased = {},
            .notErasedFromDisk = {},
            .notErasedFromDesign = {},
            .noneToRemove = u"No properties found to remove from design \"%1\"",
            .noneToRemoveUnderNode = {},
            .allRemoved = u"Successfully removed \"%1\" properties from design \"%2\"",
            .someRemoved =
                u"Failed to remove needed properties. Only \"%1\" of \"%2\" properties were "
                "removed from design \"%3\": ",
            .noneToErase = {},
            .noneToEraseUnderNode = {},
            .allErased = {},
            .someErased = {},
            .someErasedFewerRemoved = {},
            .noneListed = u"No properties found in design \"%1\"",
            .noneListedUnderNode = {},
            .noSuchNode = {},
        },
    .usage = usageRows,
    .subcommands = subcommands,
    .find = [](const IDesign &design, const QString &key) -> Item * {
        return design.propertyByName(key);
    },
    .setActive =
        [](IDesign &design, Item *item) {
            design.setActiveProperties({static_cast<DesignProperty *>(item)});
        },
    .add = [](IDesign &design, const QString &key, QString *error) -> Item * {
        return design.addProperty(key, QtilitiesCategory(), u""_s, false, error);
    },
    .isRemovable =
        [](const Item &item) {
            return static_cast<const DesignProperty &>(item).propertyData().isRemovable();
        },
    .remove = [](IDesign &design, const QString &key) { return design.removeProperty(key); },
    .all = [](const IDesign &design,
              const QString &) { return commands::asItems(design.properties()); },
    .key = name,
    .shown = name,
};

} // namespace

const commands::Manual commands::propertiesManual {
    usageRows, [] { return forms<CollectionCall>(subcommands); }};

int CallProperties(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const commands::Arguments &arguments) {
        return commands::callCollection(properties, arguments);
    });
}
