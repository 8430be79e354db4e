#include "app/find/FindTools.h"

#include "app/editor/placeopening.h"
#include "app/find/FindView.h"
#include "app/find/Locator.h"
#include "app/messages/messages.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

FindTools::FindTools(EditorArea *area, QMainWindow *window)
    : QObject(window),
      locate(new QAction(tr("&Go To..."), this)),
      find(new QAction(tr("Find in F&iles..."), this)),
      locator(new Locator(window)),
      findDock(new QDockWidget(tr("Find in Files"), window))
{
    locate->setObjectName(u"locate"_s);
    locate->setShortcut(Qt::CTRL | Qt::Key_K);
    find->setObjectName(u"findInFiles"_s);
    find->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_F);
    view = new FindView(area, findDock);
    findDock->setObjectName(u"findDock"_s);
    findDock->setWidget(view);
    window->addDockWidget(Qt::BottomDockWidgetArea, findDock);
    findDock->hide();
    connect(locate, &QAction::triggered, this, &FindTools::locatorWanted);
    connect(find, &QAction::triggered, this, &FindTools::beginFinding);
    connect(locator, &Locator::chosen, this,
            [this](LocatorModel::Kind kind, const QString &target) {
                switch (kind) {
                case LocatorModel::Design:
                    return Q_EMIT designWanted(target);
                case LocatorModel::Command:
                    return Q_EMIT commandWanted(target);
                case LocatorModel::Setting:
                    return Q_EMIT settingWanted(target);
                default:
                    const Status shown = placeopening::show(target, 0, 0);
                    if (!shown.isOk())
                        messages::tell(shown.text());
                }
            });
}

void FindTools::showLocator(const QStringList &scripts, const QStringList &settings)
{
    locator->begin(scripts, settings);
}

void FindTools::beginFinding()
{
    findDock->show();
    findDock->raise();
    view->begin();
}
