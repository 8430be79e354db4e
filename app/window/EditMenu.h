#pragma once

#include <QMenu>
#include <QPointer>

#include <functional>

class EditorActions;
class QConsole;

// The Edit menu: of what has the keyboard. The console, the editors and the panes that are added
// say what they can do; of any other part of the window it is what texts and lists can. It is made
// anew each time it opens, and takes no key from anybody: their keys are their own. An entry that
// would do nothing is disabled.
class EditMenu : public QMenu
{
    Q_OBJECT

public:
    // A pane that answers keys: whether it does something for one now, and doing it.
    struct Pane
    {
        QPointer<QWidget> widget;
        std::function<bool(QKeyCombination)> can;
        std::function<void(QKeyCombination)> run;
    };

    EditMenu(EditorActions *editorActions, QWidget *window);

    void addPane(const Pane &pane) { panes.append(pane); }

private:
    void noteFocus(QWidget *focused);
    void rebuild();
    void addConsoleActions(QConsole *console);
    void addEditorActions();
    void addKeyActions(const Pane &pane);

    EditorActions *editors;
    QWidget *window;
    QList<Pane> panes;
    // What had the keyboard before the menu took it.
    QPointer<QWidget> last;
};
