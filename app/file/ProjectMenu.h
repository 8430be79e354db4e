#pragma once

#include <QMenu>

// What can be done with projects: a project is a list of designs that are opened and closed
// together.
class ProjectMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ProjectMenu(QWidget *window);

private:
    void create();
    void open();
    void close();
    void showState();

    QWidget *window;
    QAction *saveAction;
    QAction *saveAsAction;
    QAction *closeAction;
};
