#include "commands/activeitem.h"
#include "commands/commands.h"
#include "commands/manuals.h"
#include "commands/sharedproperties.h"

#include <MorvalenCore/DesignFolder.h>

using commands::ActiveItem;
using commands::IDesign;
using commands::ItemCall;
using commands::Outcome;
using MorvalenCore::DesignFolder;

namespace {

using Item = ActiveItem::Item;

constexpr commands::UsageRow usageRows[] = {
    {"get actual_path", "Get the actual path the active design folder"},
    {"set actual_path new_value", "Set the actual path refrence the active design folder"},
    {"get category", "Get the category of the active design folder"},
    {"set category new_value", "Set the category of the active design folder"},
    {"get revision",
     "Returns the version control system revision for this folder (-1 if it is not version "
     "controlled)"},
    {"get vcs", "Returns the version control system managing this folder"},
    {"exists", "Check if the folder exists"},
    {"property exists name", "Check if the specified property exists on the active design folder"},
    {"property remove name", "Remove the specified property on the active design folder"},
    {"property get name", "Get the value of the specified property on the active design folder"},
    {"property set name type value 'read_only",
     "Sets the value of the specified property on the active design folder. Creates it if it does "
     "not exist"},
};

const DesignFolder &folderOf(const ItemCall &call)
{
    return static_cast<const DesignFolder &>(call.item);
}

constexpr commands::Subcommand<ItemCall> getItems[] = {
    {"actual_path", commands::anyArguments, commands::activeitem::getActualPath},
    {"category", commands::anyArguments, commands::activeitem::getCategory},
    {"revision", commands::anyArguments,
     [](const ItemCall &call) { return Outcome::ok(folderOf(call).versionControlRevision()); }},
    {"vcs", commands::anyArguments,
     [](const ItemCall &call) { return Outcome::ok(folderOf(call).versionControlSystemName()); }},
};

constexpr commands::Subcommand<ItemCall> setItems[] = {
    {"actual_path", commands::anyArguments, commands::activeitem::setActualPath},
    {"category", commands::anyArguments, commands::activeitem::setCategory},
};

constexpr commands::Subcommand<ItemCall> subcommands[] = {
    {"get", commands::moreThan(2), nullptr, getItems},
    {"set", commands::moreThan(3), nullptr, setItems},
    // A folder that is not on disk is an error here, as a file is not.
    {"exists", commands::atMost(2),
     [](const ItemCall &call) { return Outcome::found(folderOf(call).existsOnDisk()); }},
    {"property", commands::moreThan(3), nullptr, commands::sharedPropertyActions},
};

constexpr ActiveItem activeFolder = {
    .texts =
        {
            .usage = u"Performs actions on folder \"%1\" in design \"%2\".\nUsage: %3 args\n",
            .none = u"No active folder in design \"%1\"",
            .several = u"Multiple folders are active in design \"%1\"",
            .gone = u"Failed to find active folder in design \"%1\"",
            .categorySet = u"Successfully changed category on folder \"%1\"",
            .categoryNotSet = u"Failed to change category on folder \"%1\"",
            .pathSet = u"Requested actual folder path change on folder \"%1\". Changed to \"%2\"",
            .sharedPropertyOf = u"folder",
        },
    .usage = usageRows,
    .subcommands = subcommands,
    .active = [](const IDesign &design) { return commands::asActiveItems(design.activeFolders()); },
    .title = [](const Item &item) { return static_cast<const DesignFolder &>(item).actualPath(); },
    .label = commands::activeitem::pathLabel,
};

} // namespace

const commands::Manual commands::folderManual {usageRows,
                                               [] { return forms<ItemCall>(subcommands); }};

int CallFolder(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const commands::Arguments &arguments) {
        return commands::callActiveItem(activeFolder, arguments);
    });
}
