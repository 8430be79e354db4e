#include "commands/activedesign.h"
#include "commands/commands.h"
#include "commands/conventions.h"
#include "commands/manuals.h"
#include "commands/Subcommand.h"
#include "interp/ServedEvents.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildStepPropertyManager.h>

using commands::Arguments;
using commands::fill;
using commands::IDesign;
using commands::Outcome;
using MorvalenCore::BuildConfiguration;

namespace {

constexpr struct
{
    QStringView usage = u"Performs actions on build configuration \"%1\" in design \"%2\".\n"
                        "Usage: %3 args\n";
    QStringView none = u"Failed to find active build configuration in design \"%1\"";
    QStringView noSuchMacro = u"Macro \"%1\" does not exist in active build configuration.";
    QStringView noMacros = u"Build configuration \"%1\" has no macros to ask for";
    QStringView targetPathSet = u"Successfully set target path of build configuration";
    QStringView refreshed = u"Build configuration refreshed successfully.";
    QStringView badStepsWord = u"Selecting if only outdated steps needs to be run is specified "
                               "using \"true\" or \"false\" (Case Insensitive)";
    QStringView completed = u"Build configuration completed successfully";
    QStringView failed = u"Build configuration run failed";
} texts;

constexpr commands::UsageRow usageRows[] = {
    {"macros list", "Lists all macros in the configuration"},
    {"macros get name", "Get the value of the specified macro"},
    {"set target_path path", "Sets the target path of the configuration"},
    {"get target_path", "Gets the target path of the configuration"},
    {"get run_state", "Gets the state of the build configuration"},
    {"steps list", "Lists all steps in the configuration"},
    {"run 'all_steps",
     "Executes the build. By default only outdated steps are executed, but all_steps allows all "
     "steps to be executed"},
    {"refresh", "Refreshes the build configuration"},
};

struct BuildCall
{
    Arguments arguments;
    BuildConfiguration &configuration;
};

// Nothing here is bracketed: a build runs long, and views are to follow it.

Outcome listMacros(const BuildCall &call)
{
    const auto *const manager = call.configuration.propertyManager();
    if (!manager)
        return Outcome::error(fill(texts.noMacros, {call.configuration.configurationName()}));
    const MorvalenCore::MacroMode all =
        MorvalenCore::StepMacros | MorvalenCore::ConfigurationMacros | MorvalenCore::DesignMacros;
    return Outcome::ok(stringListToTclList(manager->macroValues(all).keys()));
}

Outcome getMacro(const BuildCall &call)
{
    const QString name = call.arguments[3];
    const auto *const manager = call.configuration.propertyManager();
    const QHash<QString, QString> macros = manager
        ? manager->macroValues(MorvalenCore::ConfigurationMacros | MorvalenCore::DesignMacros)
        : QHash<QString, QString>();
    const auto macro = macros.constFind(name);
    return macro == macros.cend() ? Outcome::error(fill(texts.noSuchMacro, {name}))
                                  : Outcome::ok(*macro);
}

Outcome getTargetPath(const BuildCall &call)
{
    return Outcome::ok(call.configuration.getTargetPath());
}

Outcome getRunState(const BuildCall &call)
{
    return Outcome::ok(BuildConfiguration::runStateToString(call.configuration.runState()));
}

Outcome setTargetPath(const BuildCall &call)
{
    call.configuration.setTargetPath(call.arguments[3]);
    return Outcome::ok(texts.targetPathSet.toString());
}

Outcome listSteps(const BuildCall &call)
{
    return Outcome::ok(stringListToTclList(call.configuration.stepNamesInOrder(-1)));
}

Outcome refresh(const BuildCall &call)
{
    const ServedEvents served;
    call.configuration.refresh();
    return Outcome::ok(texts.refreshed.toString());
}

// The configuration may be gone after a run.
Outcome run(const BuildCall &call)
{
    const std::optional<bool> allSteps =
        call.arguments.count() == 3 ? commands::truthWord(call.arguments[2]) : false;
    if (!allSteps)
        return Outcome::error(texts.badStepsWord.toString());
    const ServedEvents served;
    return call.configuration.run(!*allSteps, false) ? Outcome::ok(texts.completed.toString())
                                                     : Outcome::error(texts.failed.toString());
}

constexpr commands::Subcommand<BuildCall> macroItems[] = {
    {"list", commands::anyArguments, listMacros},
    {"get", commands::moreThan(3), getMacro},
};

constexpr commands::Subcommand<BuildCall> getItems[] = {
    {"target_path", commands::anyArguments, getTargetPath},
    {"run_state", commands::anyArguments, getRunState},
};

constexpr commands::Subcommand<BuildCall> setItems[] = {
    {"target_path", commands::moreThan(3), setTargetPath},
};

constexpr commands::Subcommand<BuildCall> stepItems[] = {
    {"list", commands::anyArguments, listSteps},
};

constexpr commands::Subcommand<BuildCall> subcommands[] = {
    {"macros", commands::anyArguments, nullptr, macroItems},
    {"get", commands::anyArguments, nullptr, getItems},
    {"set", commands::anyArguments, nullptr, setItems},
    {"steps", commands::anyArguments, nullptr, stepItems},
    {"refresh", commands::anyArguments, refresh},
    {"run", commands::between(2, 3), run},
};

Outcome build(const Arguments &arguments, IDesign &design)
{
    BuildConfiguration *configuration = design.activeBuildConfiguration();
    if (!configuration)
        return Outcome::error(fill(texts.none, {design.name()}));
    const BuildCall call {arguments, *configuration};
    return commands::dispatch<BuildCall>(subcommands, call).withUsage([&] {
        return commands::usageText(
            texts.usage, {configuration->configurationName(), design.name(), arguments[0]},
            usageRows);
    });
}

} // namespace

const commands::Manual commands::buildManual {usageRows,
                                              [] { return forms<BuildCall>(subcommands); }};

int CallBuild(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const Arguments &arguments) {
        return commands::onActiveDesign(
            [&arguments](IDesign &design) { return build(arguments, design); });
    });
}
