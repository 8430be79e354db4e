#pragma once

#include <QList>
#include <QObject>
#include <QSet>
#include <QTimer>

class QTreeView;

// Keeps the columns of a tree as wide as the rows that are seen want, up to a limit, and the tree
// without a scroll bar below as long as that can be: where there is no room for all, those that say
// least give way first, the last column before all. Wishes grow and do not shrink, so that nothing
// moves to and fro; a column that the user has set stays so.
class ColumnFit : public QObject
{
    Q_OBJECT

public:
    // The columns that may be elided, the first to give way first, each down to a number of
    // characters, and again to a lesser one where it is named again; the others never.
    struct Elided
    {
        int column;
        int characters;
    };

    ColumnFit(QTreeView *tree, const QList<Elided> &elided);

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void followRows();
    void fitSoon();
    void fit();
    QList<int> wishes();

    QTreeView *tree;
    QList<Elided> elidable;
    QTimer timer;
    QList<int> widestYet;
    QSet<int> setByUser;
    bool isFitting = false;
};
