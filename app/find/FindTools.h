#pragma once

#include <QObject>

class EditorArea;
class FindView;
class Locator;
class QAction;
class QDockWidget;
class QMainWindow;

// What finds something wherever it is: the locator, and the dock of finding in files.
class FindTools : public QObject
{
    Q_OBJECT

public:
    // The dock goes to the bottom of the window.
    FindTools(EditorArea *area, QMainWindow *window);

    // For menus: Ctrl+K and Ctrl+Shift+F.
    QAction *locateAction() const { return locate; }
    QAction *findAction() const { return find; }
    QDockWidget *dock() const { return findDock; }

Q_SIGNALS:
    // The locator is about to open: answer with showLocator().
    void locatorWanted();
    // What was chosen in it and is for others to show.
    void designWanted(const QString &id);
    void commandWanted(const QString &word);
    void settingWanted(const QString &title);

public Q_SLOTS:
    // What the window knows of scripts and settings.
    void showLocator(const QStringList &scripts, const QStringList &settings);

private:
    void beginFinding();

    QAction *locate;
    QAction *find;
    Locator *locator;
    QDockWidget *findDock;
    FindView *view;
};
