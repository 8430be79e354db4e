#include "commands/collection.h"
#include "commands/commands.h"
#include "commands/conventions.h"
#include "commands/manuals.h"

#include <MorvalenCore/DesignFile.h>

using commands::Collection;
using commands::CollectionCall;
using commands::IDesign;
using MorvalenCore::DesignFile;

namespace {

using Item = Collection::Item;

constexpr commands::UsageRow usageRows[] = {
    {"set_active actual_path", "Set specified file active"},
    {"add actual_path", "Add specified file"},
    {"remove actual_path", "Remove specified file"},
    {"delete actual_path", "Remove and delete specified file"},
    {"remove_all 'node", "Remove all files under specified node"},
    {"delete_all 'node", "Delete all files under specified node"},
    {"contains actual_path", "Check if a file exists in the design"},
    {"category actual_path", "Get the category of specified file in the design"},
    {"list 'node", "List all files under specified node"},
};

constexpr commands::Subcommand<CollectionCall> subcommands[] = {
    {"set_active", commands::moreThan(2), commands::collection::setActive},
    {"add", commands::moreThan(2), commands::collection::add},
    {"remove", commands::moreThan(2), commands::collection::remove},
    {"delete", commands::moreThan(2), commands::collection::erase},
    {"remove_all", commands::between(2, 3), commands::collection::removeAll},
    {"delete_all", commands::between(2, 3), commands::collection::eraseAll},
    {"contains", commands::moreThan(2), commands::collection::contains},
    {"category", commands::moreThan(2), commands::collection::category},
    {"list", commands::between(2, 4), commands::collection::list},
};

QString path(const Item &item) { return static_cast<const DesignFile &>(item).actualPath(); }

// Some texts end in a colon and a blank with nothing behind them, and one says "files" where
// another says "file(s)".
constexpr Collection files = {
    .texts =
        {
            .usage = u"Performs actions on files in design \"%1\".\nUsage: %2 args\n",
            .notFound = u"File \"%1\" does not match any files in design \"%2\"",
            .activated = u"Successfully changed active file in design \"%1\" to \"%2\"",
            .added = u"Successfully added file \"%1\" to design \"%2\"",
            .notAdded = u"Failed to add file \"%1\" to design \"%2\": %3",
            .removed = u"Successfully removed file \"%1\" from design \"%2\"",
            .notRemoved = u"Failed to remove file \"%1\" from design \"%2\": ",
            .notRemovable = {},
            .erased = u"Successfully deleted file \"%1\" and removed it from design \"%2\"",
            .notErasedFromDisk =
                u"Failed to delete physical file \"%1\". It will not be removed from "
                "design \"%2\": ",
            .notErasedFromDesign = u"Failed to delete file \"%1\" from design \"%2\": ",
            .noneToRemove = u"No files found to remove from design \"%1\"",
            .noneToRemoveUnderNode = u"No files found to remove under node \"%1\" in design \"%2\"",
            .allRemoved = u"Successfully removed \"%1\" file(s) from design \"%2\"",
            .someRemoved =
                u"Failed to remove needed file(s). Only \"%1\" of \"%2\" files were removed "
                "from design \"%3\": ",
            .noneToErase = u"No files found to delete in design \"%1\"",
            .noneToEraseUnderNode = u"No files found to delete under node \"%1\" in design \"%2\"",
            .allErased = u"Successfully removed \"%1\" files from design \"%2\"",
            .someErased =
                u"Failed to delete needed files. Only \"%1\" of \"%2\" files were deleted. "
                "Only these files were removed from design \"%3\": ",
            .someErasedFewerRemoved =
                u"Failed to remove needed files. Only \"%1\" of \"%2\" files "
                "were deleted, of these only \"%3\" of \"%2\" were removed from "
                "design \"%4\": ",
            .noneListed = u"No files found in design \"%1\"",
            .noneListedUnderNode = u"No files found under node \"%1\" in design \"%2\"",
            .noSuchNode = u"Node \"%1\" does not exist in design \"%2\"",
        },
    .usage = usageRows,
    .subcommands = subcommands,
    .find = [](const IDesign &design, const QString &key) -> Item * {
        return design.fileByActualPath(key, false);
    },
    .setActive = [](IDesign &design,
                    Item *item) { design.setActiveFiles({static_cast<DesignFile *>(item)}); },
    .add = [](IDesign &design, const QString &key, QString *error) -> Item * {
        return design.addFile(key, QString(), true, error);
    },
    .remove = [](IDesign &design, const QString &key) { return design.removeFile(key); },
    .removeFromComputer =
        [](Item &item) { return static_cast<DesignFile &>(item).removeFromComputer(true); },
    .all = [](const IDesign &design,
              const QString &node) { return commands::asItems(design.filesUnderNode(node, true)); },
    .key = path,
    .shown = [](const Item &item) { return preparePath(path(item)); },
    .listsNoneAsError = false,
};

} // namespace

const commands::Manual commands::filesManual {usageRows,
                                              [] { return forms<CollectionCall>(subcommands); }};

int CallFiles(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const commands::Arguments &arguments) {
        return commands::callCollection(files, arguments);
    });
}
