#pragma once

#include <QMenu>

class EditorActions;
class QConsole;

// The Edit menu: of the console while it shows, and of the editors otherwise. It is made anew each
// time it opens, and takes no key from either: their keys are their own.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    EditMenu(EditorActions *editorActions, QWidget *window);

private:
    void rebuild();
    void addConsoleActions(QConsole *console);
    void addEditorActions();

    EditorActions *editors;
    QWidget *window;
};
