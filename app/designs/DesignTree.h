#pragma once

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

    // Does what comes to mind first: opens a file, activates a design, asks for a configuration,
    // edits a property. Errors are shown.
    void activate(const TreeRow &row);

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
    bool runByKey(const QKeyEvent &event, bool onlyAsked);
    bool filterKey(QKeyEvent &event);
    void showTreeOrHint();

    DesignTreeModel *model;
    DesignTreeView *view;
    NoticeBar *notice;
    QLineEdit *filter;
    ComponentWatch *componentWatch;
    QStackedLayout *pages;
};
