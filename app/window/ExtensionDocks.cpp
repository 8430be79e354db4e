#include "app/window/ExtensionDocks.h"

#include <MorvalenCore/MorvalenManager.h>

#include <QDockWidget>

using MorvalenCore::ExtensionWidgetParameters;
using MorvalenCore::MorvalenManager;

ExtensionDocks::ExtensionDocks(QDockWidget *theNeighbour, QMainWindow *theWindow)
    : QObject(theWindow),
      window(theWindow),
      neighbour(theNeighbour)
{
    connect(MorvalenManager::instance(), &MorvalenManager::extensionWidgetAdded, this,
            &ExtensionDocks::show);
}

void ExtensionDocks::show(const ExtensionWidgetParameters &parameters)
{
    QWidget *widget = parameters.widget;
    if (!widget)
        return;
    QPointer<QDockWidget> &dock = docks[widget];
    if (!dock) {
        dock = new QDockWidget(parameters.title, window);
        dock->setAttribute(Qt::WA_DeleteOnClose);
        dock->setWidget(widget);
        window->addDockWidget(Qt::BottomDockWidgetArea, dock);
        window->tabifyDockWidget(neighbour, dock);
        connect(widget, &QObject::destroyed, dock, &QObject::deleteLater);
        connect(widget, &QObject::destroyed, this, [this, widget] { docks.remove(widget); });
    }
    dock->show();
    dock->raise();
}
