#include "commands/activeitem.h"
#include "commands/commands.h"
#include "commands/manuals.h"
#include "commands/sharedproperties.h"

#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/EditorManager.h>

using commands::ActiveItem;
using commands::IDesign;
using commands::ItemCall;
using commands::Outcome;
using MorvalenCore::DesignFile;

namespace {

using Item = ActiveItem::Item;

// The wording, "refrence" and the missing "of" included, is what users know.
constexpr commands::UsageRow usageRows[] = {
    {"get actual_path", "Get the actual path the active design file"},
    {"set actual_path new_value", "Set the actual path refrence the active design file"},
    {"get category", "Get the category of the active design file"},
    {"set category new_value", "Set the category of the active design file"},
    {"get revision",
     "Returns the version control system revision for this file (-1 if it is not version "
     "controlled)"},
    {"get vcs", "Returns the version control system managing this file"},
    {"exists", "Check if the file exists"},
    {"open", "Open the file using the system editor"},
    {"property exists name", "Check if the specified property exists on the active file"},
    {"property remove name", "Remove the specified property on the active file"},
    {"property get name", "Get the value of the specified property on the active file"},
    {"property set name type value 'read_only",
     "Sets the value of the specified property on the active file. Creates it if it does not "
     "exist"},
};

const DesignFile &fileOf(const ItemCall &call)
{
    return static_cast<const DesignFile &>(call.item);
}

Outcome open(const ItemCall &call)
{
    const QString path = fileOf(call).actualPath();
    return Outcome::found(MorvalenCore::EditorManager::instance()->createEditorForPath(
                              path, nullptr, QString(), true, false)
                          != nullptr);
}

constexpr commands::Subcommand<ItemCall> getItems[] = {
    {"actual_path", commands::anyArguments, commands::activeitem::getActualPath},
    {"category", commands::anyArguments, commands::activeitem::getCategory},
    {"revision", commands::anyArguments,
     [](const ItemCall &call) { return Outcome::ok(fileOf(call).versionControlRevision()); }},
    {"vcs", commands::anyArguments,
     [](const ItemCall &call) { return Outcome::ok(fileOf(call).versionControlSystemName()); }},
};

constexpr commands::Subcommand<ItemCall> setItems[] = {
    {"actual_path", commands::anyArguments, commands::activeitem::setActualPath},
    {"category", commands::anyArguments, commands::activeitem::setCategory},
};

constexpr commands::Subcommand<ItemCall> subcommands[] = {
    {"get", commands::moreThan(2), nullptr, getItems},
    {"set", commands::moreThan(3), nullptr, setItems},
    // A file that is not on disk is a good answer here.
    {"exists", commands::atMost(2),
     [](const ItemCall &call) { return Outcome::truth(fileOf(call).existsOnDisk()); }},
    {"open", commands::atMost(2), open},
    {"property", commands::moreThan(3), nullptr, commands::sharedPropertyActions},
};

constexpr ActiveItem activeFile = {
    .texts =
        {
            .usage = u"Performs actions on file \"%1\" in design \"%2\".\nUsage: %3 args\n",
            .none = u"No active file in design \"%1\"",
            .several = u"Multiple files are active in design \"%1\"",
            .gone = u"Failed to find active file in design \"%1\"",
            .categorySet = u"Successfully changed category on file \"%1\"",
            .categoryNotSet = u"Failed to change category on file \"%1\"",
            .pathSet = u"Requested actual file path change on file \"%1\". Changed to \"%2\"",
            .sharedPropertyOf = u"file",
        },
    .usage = usageRows,
    .subcommands = subcommands,
    .active = [](const IDesign &design) { return commands::asActiveItems(design.activeFiles()); },
    .title = [](const Item &item) { return static_cast<const DesignFile &>(item).fileName(); },
    .label = commands::activeitem::pathLabel,
};

} // namespace

const commands::Manual commands::fileManual {usageRows,
                                             [] { return forms<ItemCall>(subcommands); }};

int CallFile(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const commands::Arguments &arguments) {
        return commands::callActiveItem(activeFile, arguments);
    });
}
