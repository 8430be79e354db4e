#pragma once

#include "app/designs/TreeRow.h"

#include <QList>
#include <QSet>

#include <memory>
#include <vector>

class TreeFilter;

// A row that has rows below it: further branches, or items. The root is one too, and is no row.
// Items are many, and only their pointers are kept; each looks itself up when it is shown.
struct TreeBranch
{
    explicit TreeBranch(RowKind rowKind) : kind(rowKind) { }
    Q_DISABLE_COPY_MOVE(TreeBranch)

    // Reads what a design holds and the filter lets through.
    static std::unique_ptr<TreeBranch> read(MorvalenCore::Interfaces::IDesign &design,
                                            const TreeFilter &filter);

    // A design that needs no reading, since the rows that there are of it are good.
    static std::unique_ptr<TreeBranch> unread(MorvalenCore::Interfaces::IDesign &design);
    bool isRead() const { return kind != RowKind::Root; }

    int rowCount() const { return int(branches.empty() ? items.size() : branches.size()); }
    // Its place among the rows of its parent.
    int row() const;
    TreeBranch *add(std::unique_ptr<TreeBranch> branch);
    // The branch of the design that this one is in.
    const TreeBranch *designBranch() const;
    // All items below.
    int itemCount() const;
    // The row at a place, which must exist.
    TreeRow rowAt(int row) const;
    // The row that the branch itself is.
    TreeRow ownRow() const;

    RowKind kind;
    // Of a node.
    QString name;
    // Of the branch of a design, and the active items in it. For comparing only: the design is not
    // asked for them row by row, since there can be many.
    QPointer<QObject> designObject;
    QSet<const QObject *> active;

    TreeBranch *parent = nullptr;
    std::vector<std::unique_ptr<TreeBranch>> branches;
    RowKind itemKind = RowKind::Root;
    QList<QPointer<QObject>> items;
};
