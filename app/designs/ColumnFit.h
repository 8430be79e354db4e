#pragma once

#include <QObject>
#include <QSet>
#include <QTimer>

class QTreeView;

// Keeps the columns of a tree wide enough for the rows that are seen, up to a limit. They grow and
// do not shrink, so that nothing moves to and fro; a column that the user has set stays so.
class ColumnFit : public QObject
{
    Q_OBJECT

public:
    explicit ColumnFit(QTreeView *tree);

private:
    void fit();

    QTreeView *tree;
    QTimer timer;
    QSet<int> setByUser;
    bool isFitting = false;
};
