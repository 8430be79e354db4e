#include "commands/commands.h"
#include "commands/design_set.h"
#include "commands/ExecBracket.h"
#include "commands/manuals.h"
#include "commands/Subcommand.h"

#include <MorvalenCore/Cleaner.h>
#include <MorvalenCore/DesignCleanParameters.h>
#include <MorvalenCore/DesignConstructor.h>

using namespace Qt::Literals::StringLiterals;
using commands::Arguments;
using commands::DesignCall;
using commands::ExecBracket;
using commands::fill;
using commands::IDesign;
using commands::Outcome;
using commands::Subcommand;
using MorvalenCore::DesignManager;

namespace {

constexpr struct
{
    QStringView usage = u"Performs actions on design \"%1\".\nUsage: %2 args\n";
    QStringView closed = u"Successfully closed design \"%1\"";
    QStringView cycleStarted = u"Started processing cycle on design on active design";
    QStringView cycleEnded = u"Ended processing cycle on design on active design";
    QStringView badCycleWord =
        u"Start/stop processing cycles using \"start\" or \"end\" (Case Insensitive)";
    QStringView saved = u"Successfully saved design to file \"%1\"";
    QStringView notSaved = u"Failed to save design to file \"%1\". Error: %2";
    QStringView written = u"Successfully parsed design to file \"%1\"";
    QStringView notWritten = u"Failed to parse design to file \"%1\"";
    QStringView badVersionsWord =
        u"Specifying if generated files from all versions must be cleaned is specified using "
        "\"true\" or \"false\" (Case Insensitive)";
    QStringView folderAssigned = u"Successfully assigned physical working folder to active design.";
    QStringView folderNotAssigned = u"Failed to assign physical working folder to active design.";
} texts;

// Leaves out some forms that are understood.
constexpr commands::UsageRow usageRows[] = {
    {"close", "Closes the active design, saving any unsaved changes."},
    {"get id", "Get the ID (thus VLNV identifier) of the active design"},
    {"get vendor", "Get the vendor of the active design"},
    {"get library", "Get the library of the active design"},
    {"set name new_value", "Rename the active design"},
    {"set vendor new_value", "Sets the vendor of the active design"},
    {"set library new_value", "Sets the library of the active design"},
    {"get description", "Get the description of the active design"},
    {"set description new_value", "Set the description of the active design"},
    {"get author", "Get the author of the active design"},
    {"set author new_value", "Set the author of the active design"},
    {"get version", "Get the version of the active design"},
    {"get wfp", "Get the working folder path of the active design"},
    {"get read_only", "Get if the active design is read only"},
    {"set read_only new_value", "Change if the active design is read only"},
    {"proc_cycle start", "Starts a processing cycle on the active design"},
    {"proc_cycle end", "Ends a processing cycle on the active design"},
    {"save 'file_name",
     "Saves the active design to the file specified. If no name is specified, saved to its "
     "current component file"},
    {"clean all_versions",
     "Cleans all generated items in a design for the current, or all versions."},
};

template <auto Getter>
Outcome getText(const DesignCall &call)
{
    return Outcome::ok((call.design.*Getter)());
}

template <auto Getter>
Outcome getDotted(const DesignCall &call)
{
    return Outcome::ok((call.design.*Getter)(u"."_s));
}

template <auto Getter>
Outcome getTruth(const DesignCall &call)
{
    return Outcome::truth((call.design.*Getter)());
}

constexpr Subcommand<DesignCall> attributes[] = {
    {"name", commands::anyArguments, getText<&IDesign::name>},
    {"description", commands::anyArguments, getText<&IDesign::description>},
    {"id", commands::anyArguments, getDotted<&IDesign::id>},
    {"vendor", commands::anyArguments, getText<&IDesign::vendor>},
    {"library", commands::anyArguments, getText<&IDesign::library>},
    {"author", commands::anyArguments, getText<&IDesign::author>},
    {"version", commands::anyArguments, getDotted<&IDesign::version>},
    {"wfp", commands::anyArguments, getText<&IDesign::workingFolderPath>},
    {"busy", commands::anyArguments, getTruth<&IDesign::isBusy>},
    {"read_only", commands::anyArguments, getTruth<&IDesign::isReadOnly>},
};

// Too many arguments are a good question about the usage, an unknown attribute is an error.
Outcome get(const DesignCall &call)
{
    if (call.arguments.count() > 3)
        return Outcome::usageAsAnswer();
    return commands::dispatch<DesignCall>(attributes, call, 2);
}

Outcome close(const DesignCall &call)
{
    QString id;
    {
        ExecBracket bracket;
        id = call.design.id(u"."_s);
        DesignManager::instance()->closeDesign(id, false);
    }
    return Outcome::ok(fill(texts.closed, {id}));
}

Outcome startCycle(const DesignCall &call)
{
    {
        ExecBracket bracket;
        call.design.startProcessingCycle();
    }
    return Outcome::ok(texts.cycleStarted.toString());
}

Outcome endCycle(const DesignCall &call)
{
    {
        ExecBracket bracket;
        call.design.endProcessingCycle(true);
    }
    return Outcome::ok(texts.cycleEnded.toString());
}

Outcome processingCycle(const DesignCall &call)
{
    if (call.arguments.count() == 2)
        return Outcome::usageAsAnswer();
    const QString word = call.arguments[2];
    if (word.compare(u"start", Qt::CaseInsensitive) == 0)
        return startCycle(call);
    if (word.compare(u"end", Qt::CaseInsensitive) == 0)
        return endCycle(call);
    return Outcome::error(texts.badCycleWord.toString());
}

Outcome saveToOwnFile(const DesignCall &call)
{
    const commands::DesignGuard alive(call.design);
    QString fileName = call.design.componentFileName();
    QString error;
    bool saved = false;
    {
        ExecBracket bracket;
        saved = call.design.saveToComponentFile(&error);
    }
    if (alive)
        fileName = call.design.componentFileName();
    return saved ? Outcome::ok(fill(texts.saved, {fileName}))
                 : Outcome::error(fill(texts.notSaved, {fileName, error}));
}

Outcome save(const DesignCall &call)
{
    const QString target = call.arguments.count() == 3 ? call.arguments[2] : QString();
    if (target.isEmpty())
        return saveToOwnFile(call);
    bool written = false;
    {
        ExecBracket bracket;
        int warnings = 0;
        int errors = 0;
        written = DesignManager::instance()->parseDesignToFile(&call.design, target, QString(),
                                                               &warnings, &errors, 0, true);
    }
    return written ? Outcome::ok(fill(texts.written, {target}))
                   : Outcome::error(fill(texts.notWritten, {target}));
}

// The bracket is opened by hand, since a bad word leaves it open.
Outcome clean(const DesignCall &call)
{
    initExec();
    bool allVersions = false;
    if (call.arguments.count() == 3) {
        const std::optional<bool> word = commands::truthWord(call.arguments[2]);
        if (!word)
            return Outcome::error(texts.badVersionsWord.toString());
        allVersions = *word;
    }

    MorvalenCore::DesignCleanParameters parameters;
    parameters.grouping.setGeneratedItemsOnly(true);
    parameters.grouping.setVersionCurrent(true);
    parameters.grouping.setVersionsPrevious(allVersions);
    QString report;
    MorvalenCore::Cleaner().cleanDesign(&call.design, parameters, &report);
    finalizeExec();
    return Outcome::ok(report);
}

Outcome assignWorkingFolder(const DesignCall &call)
{
    bool assigned = false;
    {
        ExecBracket bracket;
        assigned = MorvalenCore::DesignConstructor::assignPhysicalWorkingFolderToDesign(
            &call.design, QString(), {}, nullptr, false);
    }
    return assigned ? Outcome::ok(texts.folderAssigned.toString())
                    : Outcome::error(texts.folderNotAssigned.toString());
}

constexpr Subcommand<DesignCall> subcommands[] = {
    {"get", commands::anyArguments, get, attributes},
    {"set", commands::anyArguments, commands::setDesignAttribute, commands::designSetAttributes},
    {"close", commands::anyArguments, close},
    {"proc_cycle", commands::anyArguments, processingCycle},
    {"save", commands::anyArguments, save},
    {"clean", commands::anyArguments, clean},
    {"assign_physical_wfp", commands::anyArguments, assignWorkingFolder},
};

// The command word alone is a good question about the usage.
Outcome callDesign(const DesignCall &call)
{
    return call.arguments.count() <= 1 ? Outcome::usageAsAnswer()
                                       : commands::dispatch<DesignCall>(subcommands, call);
}

} // namespace

const commands::Manual commands::designManual {usageRows,
                                               [] { return forms<DesignCall>(subcommands); }};

int CallDesign(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const Arguments &arguments) {
        return commands::onActiveDesign([&arguments](IDesign &design) {
            const DesignCall call(arguments, design);
            return callDesign(call).withUsage([&call] {
                return commands::usageText(texts.usage, {call.designName, call.arguments[0]},
                                           usageRows);
            });
        });
    });
}
