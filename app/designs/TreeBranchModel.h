#pragma once

#include "app/designs/TreeBranch.h"

#include <QAbstractItemModel>

// The rows of a tree of branches, and how they become others: with as few changes as possible, so
// that views keep what they know of the rows that stay. What the rows say is for a class below.
class TreeBranchModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    // What a row stands for; the root for an invalid index.
    TreeRow row(const QModelIndex &index) const;
    // The index of an item or a design; invalid when it is not there.
    QModelIndex indexOf(const QObject *designOrItem) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;

protected:
    // The branches of the designs.
    const std::vector<std::unique_ptr<TreeBranch>> &designBranches() const { return root.branches; }
    // The branch that a row is; null for the row of an item.
    const TreeBranch *branchAt(const QModelIndex &index) const;

    // Makes the rows those of another root, which is taken apart. Rows of an unread branch stay.
    void become(TreeBranch &wanted) { mergeBranches(root, wanted); }

    // Tell views that a row, or every row, says something else.
    void tellRowChanged(const QModelIndex &index);
    void tellAllChanged() { tellAllChanged(root); }

private:
    QModelIndex indexOf(const TreeBranch &branch) const;
    void merge(TreeBranch &branch, TreeBranch &wanted);
    void mergeBranches(TreeBranch &branch, TreeBranch &wanted);
    void mergeItems(TreeBranch &branch, TreeBranch &wanted);
    void replaceItems(TreeBranch &branch, TreeBranch &wanted);
    void tellChanged(const TreeBranch &branch);
    void tellAllChanged(const TreeBranch &branch);

    TreeBranch root {RowKind::Root};
};
