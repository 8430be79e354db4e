#include "app/builds/BuildMenu.h"

#include "app/builds/buildcalls.h"
#include "app/builds/configurationcalls.h"
#include "app/calls/chosendesign.h"
#include "app/calls/DesignSelection.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/DesignManager.h>

#include <QActionGroup>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;

namespace {

QString idOf(const IDesign &design) { return design.id(u"."_s); }

} // namespace

BuildMenu::BuildMenu(QWidget *parent)
    : QMenu(tr("&Build"), parent),
      configurations(new QMenu(tr("&Active Configuration"), this)),
      choices(new QActionGroup(this))
{
    setObjectName(u"buildMenu"_s);
    configurations->setObjectName(u"buildConfigurations"_s);
    runOutdatedAction =
        add(tr("&Build"), QKeySequence(Qt::Key_F7), "buildOutdated", &BuildMenu::runOutdated);
    runAllAction = add(tr("Build A&ll Steps"), QKeySequence(Qt::SHIFT | Qt::Key_F7), "buildAll",
                       &BuildMenu::runAll);
    refreshAction = add(tr("&Refresh"), {}, "buildRefresh", &BuildMenu::refresh);
    cancelAction = add(tr("&Cancel Build"), QKeySequence(Qt::CTRL | Qt::Key_Pause), "buildCancel",
                       &BuildMenu::cancel);
    addSeparator();
    cleanAction = add(tr("Clean &Generated Files..."), {}, "buildClean", &BuildMenu::clean);
    addSeparator();
    addMenu(configurations);
    editAction = add(tr("&Edit Configuration..."), {}, "buildEdit", &BuildMenu::edit);
    addAction = add(tr("&New Configuration..."), {}, "buildAdd", &BuildMenu::addConfiguration);
    removeAction =
        add(tr("Re&move Configuration..."), {}, "buildRemove", &BuildMenu::removeConfiguration);

    connect(choices, &QActionGroup::triggered, this, [](const QAction *chosen) {
        if (IDesign *active = design())
            buildcalls::activate(active, chosen->data().toString());
    });
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::activeDesignChanged, this, &BuildMenu::update);
    connect(manager, &DesignManager::designChanged, this, &BuildMenu::update);
    const BuildMonitor *monitor = BuildMonitor::instance();
    connect(monitor, &BuildMonitor::started, this, &BuildMenu::update);
    connect(monitor, &BuildMonitor::ended, this, &BuildMenu::update);
    connect(DesignSelection::instance(), &DesignSelection::changed, this, &BuildMenu::update);
    connect(this, &QMenu::aboutToShow, this, &BuildMenu::update);
    connect(configurations, &QMenu::aboutToShow, this, &BuildMenu::updateConfigurations);
    update();
}

QAction *BuildMenu::add(const QString &text, const QKeySequence &key, const char *name, Step step)
{
    QAction *action = QMenu::addAction(text);
    action->setShortcut(key);
    action->setObjectName(QLatin1StringView(name));
    connect(action, &QAction::triggered, this, step);
    return action;
}

IDesign *BuildMenu::design() { return chosendesign::get(); }

BuildConfiguration *BuildMenu::configuration()
{
    const IDesign *active = design();
    return active ? active->activeBuildConfiguration() : nullptr;
}

void BuildMenu::update()
{
    const IDesign *active = design();
    const BuildConfiguration *chosen = configuration();
    const bool isResting = active && !buildcalls::isBuilding(*active);
    const bool isWritable = active && !active->isReadOnly();
    runOutdatedAction->setEnabled(chosen && isResting);
    runAllAction->setEnabled(chosen && isResting);
    refreshAction->setEnabled(chosen && isResting);
    cleanAction->setEnabled(isResting && isWritable);
    editAction->setEnabled(chosen);
    addAction->setEnabled(isWritable);
    removeAction->setEnabled(chosen && isResting && isWritable);
    configurations->setEnabled(chosen);
    cancelAction->setEnabled(!BuildMonitor::instance()->running().isEmpty());
    const QString name = chosen ? chosen->configurationName().replace(u'&', u"&&"_s) : QString();
    const QString of = chosendesign::menuName(active);
    runOutdatedAction->setText(chosen ? tr("&Build \"%1\" of \"%2\"").arg(name, of) : tr("&Build"));
    runAllAction->setText(chosen ? tr("Build A&ll Steps of \"%1\" of \"%2\"").arg(name, of)
                                 : tr("Build A&ll Steps"));
}

void BuildMenu::updateConfigurations()
{
    configurations->clear();
    const IDesign *active = design();
    if (!active)
        return;
    const BuildConfiguration *chosen = configuration();
    const QStringList names = active->buildConfigurationNames();
    for (const QString &name : names) {
        QAction *choice = configurations->addAction(QString(name).replace(u'&', u"&&"_s));
        choice->setData(name);
        choice->setCheckable(true);
        choice->setChecked(chosen && chosen->configurationName() == name);
        choices->addAction(choice);
    }
}

void BuildMenu::runOutdated()
{
    if (BuildConfiguration *chosen = configuration())
        buildcalls::run(chosen, true);
}

void BuildMenu::runAll()
{
    if (BuildConfiguration *chosen = configuration())
        buildcalls::run(chosen, false);
}

void BuildMenu::refresh()
{
    if (BuildConfiguration *chosen = configuration())
        buildcalls::refresh(chosen);
}

void BuildMenu::clean()
{
    if (IDesign *active = design())
        buildcalls::clean(active, false, window());
}

void BuildMenu::cancel()
{
    const QList<BuildConfiguration *> running = BuildMonitor::instance()->running();
    if (running.isEmpty())
        return;
    BuildConfiguration *chosen = configuration();
    (running.contains(chosen) ? chosen : running.last())->cancel();
}

void BuildMenu::edit()
{
    if (const BuildConfiguration *chosen = configuration())
        Q_EMIT configurationActivated(idOf(*design()), chosen->configurationName());
}

void BuildMenu::addConfiguration()
{
    IDesign *active = design();
    const QPointer<QObject> object = active ? active->objectBase() : nullptr;
    const QString name = active ? configurationcalls::add(active, window()) : QString();
    if (!name.isEmpty() && object)
        Q_EMIT configurationActivated(idOf(*active), name);
}

void BuildMenu::removeConfiguration()
{
    if (const BuildConfiguration *chosen = configuration())
        configurationcalls::remove(design(), *chosen, window());
}
