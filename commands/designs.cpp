#include "commands/commands.h"
#include "commands/conventions.h"
#include "commands/designs_new.h"
#include "commands/ExecBracket.h"
#include "commands/manuals.h"
#include "commands/Subcommand.h"

#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignStructureManager.h>

using namespace Qt::Literals::StringLiterals;
using commands::Arguments;
using commands::ExecBracket;
using commands::fill;
using commands::Outcome;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignStructureManager;

namespace {

constexpr struct
{
    QStringView noSuchDesign = u"ID \"%1\" does not match the ID of an open design";
    QStringView activated = u"Successfully changed active design to \"%1\"";
    QStringView noDefaultStructure = u"Default structure does not exist for design type \"%1\"";
    QStringView defaultStructureSet = u"Successfully set default structure for design type \"%1\"";
    QStringView defaultStructureNotSet = u"Failed to set default structure for design type \"%1\"";
    QStringView closed = u"Successfully closed design \"%1\"";
    QStringView deleted =
        u"Successfully removed design \"%1\" and marked its working folder for deletion";
    QStringView allClosed = u"Successfully closed all open designs";
    QStringView allDeleted =
        u"Successfully closed all open designs and marked their working folder for deletion";
    QStringView added = u"Successfully parsed design from \"%1\"";
    QStringView notAdded = u"Failed to parse design from \"%1\"";
} texts;

constexpr commands::UsageRow usageRows[] = {
    {"set_active id", "Set specified design as active"},
    {"new name 'type 'structure 'library 'vendor", "Create a new design with the parameters given"},
    {"list", "Return with the ids of open designs"},
    {"types", "Return a list of available design types"},
    {"structures 'type",
     "Return a list of available structures for designs of \"type\". When type is empty, all "
     "structures are returned"},
    {"structures get_default type", "Gets the default structure for the specified design type"},
    {"structures set_default type structure_name",
     "Sets the default structure for the specified design type"},
    {"close id 'delete_wf",
     "Remove specfied design and removes its working folder if needed. Be carefull, this cannot "
     "be undone"},
    {"close_all 'delete_wf",
     "Remove all open designs and their working folders if needed. Be carefull, this cannot be "
     "undone"},
    {"add file_name", "Add design from the specified file"},
    {"designs_path", "Return the default path used to store design working folders"},
    {"backups_path", "Return the default path used to backup designs"},
};

Outcome list(const QStringList &elements) { return Outcome::ok(stringListToTclList(elements)); }

Outcome setActive(const Arguments &arguments)
{
    const QString id = arguments[2];
    if (!DesignManager::instance()->openDesignIds().contains(id))
        return Outcome::error(fill(texts.noSuchDesign, {id}));
    {
        ExecBracket bracket;
        DesignManager::instance()->setActiveDesign(id);
    }
    return Outcome::ok(fill(texts.activated, {id}));
}

Outcome getDefaultStructure(const QString &type)
{
    const QString name =
        DesignStructureManager::instance()->defaultStructureNameForDesignType(type);
    return name.isEmpty() ? Outcome::error(fill(texts.noDefaultStructure, {type}))
                          : Outcome::ok(name);
}

Outcome setDefaultStructure(const QString &type, const QString &structure)
{
    const bool set =
        DesignStructureManager::instance()->setDefaultStructureNameForDesignType(type, structure);
    return set ? Outcome::ok(fill(texts.defaultStructureSet, {type}))
               : Outcome::error(fill(texts.defaultStructureNotSet, {type}));
}

// The number of arguments decides first: a type may have the name of an operation.
Outcome structures(const Arguments &arguments)
{
    const DesignStructureManager *manager = DesignStructureManager::instance();
    if (arguments.count() == 2)
        return list(manager->designStructureNames());
    if (arguments.count() == 3)
        return list(manager->designStructureNamesForDesign(arguments[2]));
    if (arguments.count() == 4 && arguments.is(2, "get_default"))
        return getDefaultStructure(arguments[3]);
    if (arguments.count() == 5 && arguments.is(2, "set_default"))
        return setDefaultStructure(arguments[3], arguments[4]);
    return Outcome::usage();
}

Outcome close(const Arguments &arguments)
{
    const QString id = arguments[2];
    if (!DesignManager::instance()->design(id))
        return Outcome::error(fill(texts.noSuchDesign, {id}));
    const bool deleteFolder = arguments.is(3, "true");
    {
        ExecBracket bracket;
        DesignManager::instance()->closeDesign(id, deleteFolder);
    }
    return Outcome::ok(fill(deleteFolder ? texts.deleted : texts.closed, {id}));
}

Outcome closeAll(const Arguments &arguments)
{
    const bool deleteFolders = arguments.is(2, "true");
    {
        ExecBracket bracket;
        const QStringList ids = DesignManager::instance()->openDesignIds();
        DesignManager::instance()->closeDesigns(ids, deleteFolders);
    }
    return Outcome::ok((deleteFolders ? texts.allDeleted : texts.allClosed).toString());
}

Outcome add(const Arguments &arguments)
{
    const QString fileName = arguments[2];
    bool added = false;
    {
        ExecBracket bracket;
        added = DesignManager::instance()->parseDesignFromFile(QString(), fileName) != nullptr;
    }
    return added ? Outcome::ok(fill(texts.added, {fileName}))
                 : Outcome::error(fill(texts.notAdded, {fileName}));
}

constexpr commands::Subcommand<Arguments> subcommands[] = {
    {"set_active", commands::anyArguments, setActive},
    {"designs_path", commands::anyArguments,
     [](const Arguments &) {
         return Outcome::ok(DesignManager::instance()->path(DesignManager::DesignsPath));
     }},
    {"backups_path", commands::anyArguments,
     [](const Arguments &) {
         return Outcome::ok(DesignManager::instance()->path(DesignManager::BackupsPath));
     }},
    {"new", commands::anyArguments, commands::newDesign},
    {"list", commands::anyArguments,
     [](const Arguments &) { return list(DesignManager::instance()->openDesignIds()); }},
    {"types", commands::anyArguments,
     [](const Arguments &) { return list(DesignManager::instance()->designTypes()); }},
    {"structures", commands::anyArguments, structures},
    {"close", commands::between(3, 4), close},
    {"close_all", commands::between(2, 3), closeAll},
    {"add", commands::anyArguments, add},
};

} // namespace

const commands::Manual commands::designsManual {usageRows,
                                                [] { return forms<Arguments>(subcommands); }};

int CallDesigns(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const Arguments &arguments) {
        return commands::dispatch<Arguments>(subcommands, arguments).withUsage([&arguments] {
            return commands::usageText(u"Usage: %1 args\n", {arguments[0]}, usageRows);
        });
    });
}
