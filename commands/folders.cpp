#include "commands/collection.h"
#include "commands/commands.h"
#include "commands/conventions.h"
#include "commands/manuals.h"

#include <MorvalenCore/DesignFolder.h>

using commands::Collection;
using commands::CollectionCall;
using commands::IDesign;
using MorvalenCore::DesignFolder;

namespace {

using Item = Collection::Item;

// The blank at the end of "delete_all " belongs to the key.
constexpr commands::UsageRow usageRows[] = {
    {"set_active actual_path", "Set specified folder active"},
    {"add actual_path", "Add specified folder"},
    {"remove actual_path", "Remove specified folder"},
    {"delete actual_path", "Remove and delete specified folder"},
    {"remove_all", "Remove all folders in the active design"},
    {"delete_all ", "Delete all folders in the active design"},
    {"contains actual_path", "Check if a folder exists in the design"},
    {"category actual_path", "Get the category of specified folder in the design"},
    {"list", "List all folders in the design"},
};

// Folders lie under no node, so the calls on all of them take no further argument.
constexpr commands::Subcommand<CollectionCall> subcommands[] = {
    {"set_active", commands::moreThan(2), commands::collection::setActive},
    {"add", commands::moreThan(2), commands::collection::add},
    {"remove", commands::moreThan(2), commands::collection::remove},
    {"delete", commands::moreThan(2), commands::collection::erase},
    {"remove_all", commands::exactly(2), commands::collection::removeAll},
    {"delete_all", commands::exactly(2), commands::collection::eraseAll},
    {"contains", commands::moreThan(2), commands::collection::contains},
    {"category", commands::moreThan(2), commands::collection::category},
    {"list", commands::exactly(2), commands::collection::list},
};

QString path(const Item &item) { return static_cast<const DesignFolder &>(item).actualPath(); }

constexpr Collection folders = {
    .texts =
        {
            .usage = u"Performs actions on folders in design \"%1\".\nUsage: %2 args\n",
            .notFound = u"Folder \"%1\" does not match any folders in design \"%2\"",
            .activated = u"Successfully changed active folder in design \"%1\" to \"%2\"",
            .added = u"Successfully added folder \"%1\" to design \"%2\"",
            .notAdded = u"Failed to add folder \"%1\" to design \"%2\": %3",
            .removed = u"Successfully removed folder \"%1\" from design \"%2\"",
            .notRemoved = u"Failed to remove folder \"%1\" from design \"%2\": ",
            .notRemovable = {},
            .erased = u"Successfully deleted folder \"%1\" and removed it from design \"%2\"",
            .notErasedFromDisk = u"Failed to delete physical folder \"%1\". It will not be removed "
                                 "from design \"%2\": ",
            .notErasedFromDesign = u"Failed to delete folder \"%1\" from design \"%2\": ",
            .noneToRemove = u"No folders found to remove from design \"%1\"",
            .noneToRemoveUnderNode = {},
            .allRemoved = u"Successfully removed \"%1\" folder(s) from design \"%2\"",
            .someRemoved = u"Failed to remove needed folder(s). Only \"%1\" of \"%2\" folders were "
                           "removed from design \"%3\": ",
            .noneToErase = u"No folders found to delete in design \"%1\"",
            .noneToEraseUnderNode = {},
            .allErased = u"Successfully removed \"%1\" folders from design \"%2\"",
            // Names %2 twice and never %3: the number found stands where the design's name would.
            .someErased = u"Failed to delete needed folders. Only \"%1\" of \"%2\" folders were "
                          "deleted. Only these folders were removed from design \"%2\": ",
            .someErasedFewerRemoved =
                u"Failed to remove needed folders. Only \"%1\" of \"%2\" folders "
                "were deleted, of these only \"%3\" of \"%2\" were removed from "
                "design \"%4\": ",
            .noneListed = u"No folders found in design \"%1\"",
            .noneListedUnderNode = {},
            .noSuchNode = {},
        },
    .usage = usageRows,
    .subcommands = subcommands,
    .find = [](const IDesign &design, const QString &key) -> Item * {
        return design.folderByActualPath(key);
    },
    .setActive = [](IDesign &design,
                    Item *item) { design.setActiveFolders({static_cast<DesignFolder *>(item)}); },
    .add = [](IDesign &design, const QString &key, QString *error) -> Item * {
        return design.addFolder(key, error);
    },
    .remove = [](IDesign &design, const QString &key) { return design.removeFolder(key); },
    .removeFromComputer =
        [](Item &item) { return static_cast<DesignFolder &>(item).removeFromComputer(true); },
    .all = [](const IDesign &design,
              const QString &) { return commands::asItems(design.folders()); },
    .key = path,
    .shown = [](const Item &item) { return preparePath(path(item)); },
};

} // namespace

const commands::Manual commands::foldersManual {usageRows,
                                                [] { return forms<CollectionCall>(subcommands); }};

int CallFolders(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const commands::Arguments &arguments) {
        return commands::callCollection(folders, arguments);
    });
}
