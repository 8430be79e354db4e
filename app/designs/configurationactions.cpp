// What can be done with build configurations.

#include "app/builds/buildcalls.h"
#include "app/builds/configurationcalls.h"
#include "app/calls/HostCall.h"
#include "app/designs/DesignTree.h"
#include "app/designs/RowAction.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"

using namespace Qt::Literals::StringLiterals;
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

void runAll(const RowCall &call) { buildcalls::run(call.first().configuration(), false); }

// What is new is shown, to be filled.
void show(const RowCall &call, const QPointer<QObject> &design, const QString &name)
{
    const TreeRow row {RowKind::Design, design, {}, {}, false};
    if (!name.isEmpty() && row.isThere())
        Q_EMIT call.tree.configurationActivated(row.design()->id(u"."_s), name);
}

void add(const RowCall &call)
{
    const QPointer<QObject> design = call.first().designObject;
    show(call, design, configurationcalls::add(call.first().design(), call.window()));
}

void duplicate(const RowCall &call)
{
    const QPointer<QObject> design = call.first().designObject;
    show(call, design,
         configurationcalls::duplicate(call.first().design(), *call.first().configuration(),
                                       call.window()));
}

void rename(const RowCall &call)
{
    configurationcalls::rename(call.first().design(), call.first().configuration(), call.window());
}

void remove(const RowCall &call)
{
    configurationcalls::remove(call.first().design(), *call.first().configuration(), call.window());
}

QString folderOf(const RowCall &call)
{
    return configurationcalls::folderOf(*call.first().design(), *call.first().configuration());
}

void openFolder(const RowCall &call) { messages::showFolder(folderOf(call)); }

bool isResting(const RowCall &call)
{
    return call.first().configuration()->runState() != BuildConfiguration::Running;
}

constexpr unsigned configurations = rowBit(RowKind::Configuration);

constexpr RowAction actions[] = {
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&New Configuration..."),
     .kinds = rowBit(RowKind::Builds),
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = add,
     .key = Qt::Key_Insert,
     .icon = ActionIcon::NewConfiguration},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Set &Active"),
     .kinds = configurations,
     .needs = RowAction::OneRow,
     .run = setActive,
     .isPossible = [](const RowCall &call) { return !call.first().active; }},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Edit..."),
     .kinds = configurations,
     .needs = RowAction::OneRow,
     .run = edit,
     .icon = ActionIcon::Edit},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Run"),
     .kinds = configurations,
     .needs = RowAction::OneRow | RowAction::Separated,
     .run = runConfiguration,
     .isPossible = isResting,
     .icon = ActionIcon::Run},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Run A&ll Steps"),
     .kinds = configurations,
     .needs = RowAction::OneRow,
     .run = runAll,
     .isPossible = isResting,
     .icon = ActionIcon::RunAll},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Open Folder"),
     .kinds = configurations,
     .needs = RowAction::OneRow | RowAction::Separated,
     .run = openFolder,
     .isPossible = [](const RowCall &call) { return !folderOf(call).isEmpty(); },
     .icon = ActionIcon::OpenFolder},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Duplicate..."),
     .kinds = configurations,
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = duplicate,
     .icon = ActionIcon::Copy},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Rena&me..."),
     .kinds = configurations,
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = rename,
     .isPossible = isResting,
     .key = Qt::Key_F2,
     .icon = ActionIcon::Rename},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Remo&ve..."),
     .kinds = configurations,
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = remove,
     .isPossible = isResting,
     .key = Qt::Key_Delete,
     .icon = ActionIcon::Remove},
};

} // namespace

std::span<const RowAction> rowactions::ofConfigurations() { return actions; }
