#pragma once

#include <QMenu>

class ModeBar;

// The View menu: the modes, the docks, and the full screen.
class ViewMenu : public QMenu
{
    Q_OBJECT

public:
    ViewMenu(ModeBar *modes, QWidget *window);

    // Lists a dock behind the others.
    void addDock(QAction *toggle) { docks.append(toggle); }
    // Lists actions that go from place to place; their keys work in the whole window.
    void addPlaces(const QList<QAction *> &actions);

private:
    void rebuild();
    void showFullScreen(bool full);

    ModeBar *modeBar;
    QWidget *window;
    QList<QAction *> docks;
    QList<QAction *> places;
    QAction *fullScreen;
};
