#pragma once

#include "app/designs/TreeRow.h"

#include <QWidget>

class DesignTreeModel;
class DesignTreeView;
class QLineEdit;
class QStackedLayout;

// The tree of open designs with a line to filter it, or a hint how to begin while no design is
// open.
class DesignTree : public QWidget
{
    Q_OBJECT

public:
    explicit DesignTree(QWidget *parent = nullptr);

    DesignTreeView *treeView() const { return view; }

Q_SIGNALS:
    // The user wants to see or edit a build configuration.
    void configurationActivated(const QString &designId, const QString &name);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void activate(const TreeRow &row);
    void showTreeOrHint();

    DesignTreeModel *model;
    DesignTreeView *view;
    QLineEdit *filter;
    QStackedLayout *pages;
};
