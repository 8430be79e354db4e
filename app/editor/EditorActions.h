#pragma once

#include "app/editor/EditorPage.h"

#include <QAction>
#include <QHash>

class EditorArea;

// What menus and keys do with the pages of an editor area: one QAction each, enabled while the page
// in front can do it. Their shortcuts work while the focus is in the area, so that the same keys
// are free elsewhere. A menu shows an action with addAction(); the actions belong to this object,
// and this object to the area, which makes it.
class EditorActions : public QObject
{
    Q_OBJECT

public:
    // What is done with pages, rather than by the one in front.
    enum PagesCommand { Save, SaveAll, Close, CloseOthers, CloseAll, NextPage, PreviousPage };

    explicit EditorActions(EditorArea *area);

    QAction *action(PagesCommand command) const { return pagesActions.value(command); }
    QAction *action(EditorPage::Command command) const { return pageActions.value(command); }

    // Looks again at what the page in front can do.
    void update();

    // What the actions are about.
    QWidget *widget() const;

    // From now on those that close pages and go from one to the next work wherever the focus is in
    // the window, as long as the area shows.
    void letPagesReachOut();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void reachOut(bool isShown);

    EditorArea *area;
    QHash<PagesCommand, QAction *> pagesActions;
    QHash<EditorPage::Command, QAction *> pageActions;
};
