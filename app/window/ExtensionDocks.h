#pragma once

#include <QHash>
#include <QMainWindow>
#include <QPointer>

class QDockWidget;

namespace MorvalenCore {
struct ExtensionWidgetParameters;
}

// Shows each widget of a plug-in's in a dock of its own. Closing the dock deletes the widget.
class ExtensionDocks : public QObject
{
    Q_OBJECT

public:
    // The docks stand behind this one. Belongs to the window.
    ExtensionDocks(QDockWidget *neighbour, QMainWindow *window);

private:
    // A widget that is there already comes to the front.
    void show(const MorvalenCore::ExtensionWidgetParameters &parameters);

    QMainWindow *const window;
    QDockWidget *const neighbour;
    QHash<QWidget *, QPointer<QDockWidget>> docks;
};
