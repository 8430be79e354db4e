// What can be done with build configurations.

#include "app/builds/buildcalls.h"
#include "app/calls/HostCall.h"
#include "app/designs/DesignTree.h"
#include "app/designs/RowAction.h"
#include "app/journal/journaling.h"

using MorvalenCore::BuildConfiguration;

namespace {

void setActive(const RowCall &call)
{
    const HostCall attempt(call.window(), DesignTree::tr("Not Activated"));
    call.first().design()->setActiveBuildConfiguration(call.first().configuration());
    journaling::configurationActivated(*call.first().design(),
                                       call.first().configuration()->configurationName());
}

void edit(const RowCall &call) { call.tree.activate(call.first()); }

void runConfiguration(const RowCall &call) { buildcalls::run(call.first().configuration(), true); }

bool isResting(const RowCall &call)
{
    return call.first().configuration()->runState() != BuildConfiguration::Running;
}

constexpr unsigned configurations = rowBit(RowKind::Configuration);

constexpr RowAction actions[] = {
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Set &Active"),
     .kinds = configurations,
     .needs = RowAction::OneRow,
     .run = setActive,
     .isPossible = [](const RowCall &call) { return !call.first().active; }},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Edit..."),
     .kinds = configurations,
     .needs = RowAction::OneRow,
     .run = edit},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Run"),
     .kinds = configurations,
     .needs = RowAction::OneRow | RowAction::Separated,
     .run = runConfiguration,
     .isPossible = isResting},
};

} // namespace

std::span<const RowAction> rowactions::ofConfigurations() { return actions; }
