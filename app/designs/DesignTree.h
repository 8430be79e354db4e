#pragma once

#include "app/designs/RemovalUndo.h"
#include "app/designs/TreeRow.h"

#include <QWidget>

class ComponentWatch;
class DesignTreeModel;
class DesignTreeView;
class NoticeBar;
class QKeyEvent;
class QLineEdit;
class QStackedLayout;

// The tree of open designs with a line to filter it, or a hint how to begin while no design is
// open.
class DesignTree : public QWidget
{
    Q_OBJECT

public:
    explicit DesignTree(QWidget *parent = nullptr);
    ~DesignTree() override;

    DesignTreeView *treeView() const { return view; }

    // For the end of the program, which threads must not outlive.
    void endLooking();

    // Does what comes to mind first: opens a file, activates a design, asks for a configuration,
    // edits a property. Errors are shown.
    void activate(const TreeRow &row);

    // Takes the keyboard: the rows, or while no design is open, what begins with one.
    void takeFocus();

    // Whether a key does something with the selected rows now, and doing it.
    bool canRun(QKeyCombination key);
    void runKey(QKeyCombination key) { runByKey(key, false); }

    // What is removed from designs here can be brought back.
    RemovalUndo &removals() { return undo; }

    // Files that are taken to another place by pasting them there; until then they stay.
    void cut(const QList<TreeRow> &files);
    bool canPaste(const TreeRow &target) const;
    void paste(const TreeRow &target);

Q_SIGNALS:
    // The user wants to see or edit a build configuration.
    void configurationActivated(const QString &designId, const QString &name);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openFile(const TreeRow &row);
    void setValue(const TreeRow &row, const QVariant &value);
    void showMenu(const QPoint &globalPosition);
    bool runByKey(QKeyCombination key, bool onlyAsked);
    bool filterKey(QKeyEvent &event);
    QList<TreeRow> actionRows() const;
    void followModel();
    void followDesigns();
    void showTreeOrHint();

    DesignTreeModel *model;
    DesignTreeView *view;
    NoticeBar *notice;
    QLineEdit *filter;
    ComponentWatch *componentWatch;
    RemovalUndo undo;
    QList<TreeRow> cutFiles;
    QStackedLayout *pages;
    // Whether a design has come that the rows do not show yet, and whether they are about to.
    bool hasArrival = false;
    bool isArriving = false;
};
