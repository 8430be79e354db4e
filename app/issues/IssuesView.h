#pragma once

#include <QWidget>

class IssueList;
class IssueModel;
class QModelIndex;
class QTreeView;

// The issues by build and script. A click on one or Return goes to its place, and so do the actions
// for the next and the previous one.
class IssuesView : public QWidget
{
    Q_OBJECT

public:
    // The list stays the caller's and outlives the view.
    explicit IssuesView(IssueList *list, QWidget *parent = nullptr);

    // For menus: F8 and Shift+F8.
    QAction *nextAction() const { return next; }
    QAction *previousAction() const { return previous; }

private:
    void makeActions();
    void follow();
    void step(int by);
    void go(const QModelIndex &index);
    void copy() const;
    void showMenu(const QPoint &position);
    QList<QModelIndex> allIssues() const;

    IssueList *list;
    IssueModel *model;
    QTreeView *tree;
    QAction *next;
    QAction *previous;
    QAction *copying;
};
