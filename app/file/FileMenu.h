#pragma once

#include <QMenu>

class EditorActions;
class EditorArea;
class SaveActions;

// The File menu: making, opening, saving and closing designs and projects. What closes or opens
// designs is refused while a script runs, with the reason in the status bar.
class FileMenu : public QMenu
{
    Q_OBJECT

public:
    FileMenu(EditorArea *editors, QWidget *window);

Q_SIGNALS:
    void preferencesWanted();
    void quitWanted();

private:
    void addDesignActions();
    void addPageActions();
    void showState();
    void showPageState();
    void enable();
    void newDesign();
    void closeDesign();

    QWidget *window;
    SaveActions *saving;
    EditorActions *pages;
    // Those that change which designs are open.
    QList<QAction *> changing;
    QAction *closeAction = nullptr;
};
