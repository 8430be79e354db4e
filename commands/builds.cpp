#include "commands/activedesign.h"
#include "commands/commands.h"
#include "commands/conventions.h"
#include "commands/ExecBracket.h"
#include "commands/manuals.h"
#include "commands/Subcommand.h"

#include <MorvalenCore/BuildConfiguration.h>

using commands::Arguments;
using commands::DesignCall;
using commands::fill;
using commands::IDesign;
using commands::Outcome;

namespace {

constexpr struct
{
    QStringView usage =
        u"Performs actions on build configuartions in design \"%1\".\nUsage: %2 args\n";
    QStringView activated =
        u"Successfully changed active build configuration in design \"%1\" to \"%2\"";
    QStringView notFound =
        u"Build configuration \"%1\" does not match any build configurations in design \"%2\"";
} texts;

constexpr commands::UsageRow usageRows[] = {
    {"set_active name", "Set specified build configuration as active"},
    {"list", "List all build configurations"},
};

Outcome list(const DesignCall &call)
{
    return Outcome::ok(stringListToTclList(call.design.buildConfigurationNames()));
}

Outcome setActive(const DesignCall &call)
{
    const QString name = call.arguments[2];
    auto *configuration = call.design.buildConfiguration(name);
    {
        commands::ExecBracket bracket;
        call.design.setActiveBuildConfiguration(configuration);
    }
    return configuration ? Outcome::ok(fill(texts.activated, {call.designName, name}))
                         : Outcome::error(fill(texts.notFound, {name, call.designName}));
}

constexpr commands::Subcommand<DesignCall> subcommands[] = {
    {"list", commands::anyArguments, list},
    {"set_active", commands::moreThan(2), setActive},
};

} // namespace

const commands::Manual commands::buildsManual {usageRows,
                                               [] { return forms<DesignCall>(subcommands); }};

int CallBuilds(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, [](const Arguments &arguments) {
        return commands::onActiveDesign([&arguments](IDesign &design) {
            const DesignCall call(arguments, design);
            return commands::dispatch<DesignCall>(subcommands, call).withUsage([&call] {
                return commands::usageText(texts.usage, {call.designName, call.arguments[0]},
                                           usageRows);
            });
        });
    });
}
