#include "commands/commands.h"
#include "commands/conventions.h"
#include "commands/Outcome.h"
#include "commands/texts.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/DesignFile.h>
#include <MorvalenCore/DesignFolder.h>
#include <MorvalenCore/DesignManager.h>
#include <MorvalenCore/DesignProperty.h>
#include <MorvalenCore/IDesign.h>
#include <MorvalenCore/MorvalenManager.h>
#include <Qtilities/ProjectManager.h>
#include <Qtilities/QtilitiesApplication.h>

using namespace Qt::Literals::StringLiterals;
using commands::Arguments;
using commands::Outcome;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ProjectManagement::ProjectManager;

namespace {

using Rows = QMap<QString, QString>;

const IDesign *activeDesign()
{
    const auto *manager = MorvalenCore::DesignManager::instance();
    if (manager->activeDesigns().isEmpty())
        return nullptr;
    return manager->activeDesigns().value(0);
}

// One active item shows as itself unless it is gone, any other number as the number: a design
// without active items has "0 active files".
template <typename Item, typename Shown>
void showActive(QString &row, const QList<QPointer<Item>> &items, QStringView count,
                const Shown &shown)
{
    if (items.size() != 1)
        row = commands::fill(count, {QString::number(items.size())});
    else if (items.first())
        row = shown(*items.first());
}

void showDesign(Rows &rows, const IDesign &design)
{
    const auto path = [](const auto &item) { return preparePath(item.actualPath()); };
    rows[u"Active Design"_s] = design.name();
    showActive(rows[u"Active Design File"_s], design.activeFiles(), u"%1 active files", path);
    showActive(rows[u"Active Design Folder"_s], design.activeFolders(), u"%1 active folders", path);
    showActive(rows[u"Active Design Property"_s], design.activeProperties(),
               u"%1 active properties", [](const auto &item) { return item.getName(nullptr); });
    if (const auto *configuration = design.activeBuildConfiguration())
        rows[u"Active Design Build Configuration"_s] = configuration->configurationName();
}

Outcome overview(const Arguments &)
{
    Rows rows {
        {u"Active Project"_s, u"No open project"_s},
        {u"Active Design"_s, u"No active design"_s},
        {u"Active Design File"_s, u"No active design file"_s},
        {u"Active Design Folder"_s, u"No active design folder"_s},
        {u"Active Design Property"_s, u"No active design property"_s},
        {u"Active Design Build Configuration"_s, u"No active build configuration"_s},
        {u"Application Version"_s, QCoreApplication::applicationVersion()},
        {u"Application Directory"_s, QCoreApplication::applicationDirPath()},
        {u"Application Session Path"_s, QtilitiesApplication::applicationSessionPath()},
        {u"Application Session UDP Port"_s,
         QString::number(MorvalenCore::MorvalenManager::instance()->getUdpSocketForSession())},
    };
    const ProjectManager *projects = ProjectManager::instance();
    if (projects->currentProject())
        rows[u"Active Project"_s] = projects->currentProjectName();
    if (const IDesign *design = activeDesign())
        showDesign(rows, *design);
    return Outcome::ok(prepareUsageMessage(rows));
}

} // namespace

int CallOverview(ClientData, Tcl_Interp *interp, int argc, const char **argv)
{
    return commands::run(interp, argc, argv, overview);
}
