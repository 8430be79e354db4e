#include "app/window/ViewMenu.h"

#include "app/window/ModeBar.h"

using namespace Qt::Literals::StringLiterals;

ViewMenu::ViewMenu(ModeBar *modes, QWidget *theWindow)
    : QMenu(tr("&View"), theWindow),
      modeBar(modes),
      window(theWindow),
      fullScreen(new QAction(tr("&Full Screen"), this))
{
    setObjectName(u"viewMenu"_s);
    fullScreen->setObjectName(u"fullScreen"_s);
    fullScreen->setCheckable(true);
    fullScreen->setShortcut(Qt::Key_F11);
    window->addAction(fullScreen);
    connect(fullScreen, &QAction::triggered, this, &ViewMenu::showFullScreen);
    connect(this, &QMenu::aboutToShow, this, &ViewMenu::rebuild);
}

void ViewMenu::addPlaces(const QList<QAction *> &actions)
{
    places += actions;
    window->addActions(actions);
}

void ViewMenu::rebuild()
{
    clear();
    addActions(modeBar->actions());
    addSeparator();
    addActions(docks);
    addSeparator();
    addActions(places);
    addSeparator();
    fullScreen->setChecked(window->isFullScreen());
    addAction(fullScreen);
}

void ViewMenu::showFullScreen(bool full)
{
    window->setWindowState(window->windowState().setFlag(Qt::WindowFullScreen, full));
}
