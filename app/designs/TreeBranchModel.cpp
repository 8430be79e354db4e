#include "app/designs/TreeBranchModel.h"

#include "app/designs/rowchanges.h"
#include "app/designs/rowtexts.h"

namespace {

// Beyond that, telling views of every range of rows takes longer than laying them out anew.
constexpr qsizetype rangeLimit = 32;

// What tells a branch from its neighbours: its design, or what it is a group of.
using BranchKey = std::pair<const QObject *, QString>;

QList<BranchKey> keysOf(const std::vector<std::unique_ptr<TreeBranch>> &branches)
{
    QList<BranchKey> keys;
    for (const auto &branch : branches) {
        if (branch->designObject)
            keys.append({branch->designObject, QString()});
        else
            keys.append({nullptr, QString::number(int(branch->kind)) + branch->name});
    }
    return keys;
}

QList<const QObject *> keysOf(const QList<QPointer<QObject>> &items)
{
    QList<const QObject *> keys;
    keys.reserve(items.size());
    for (const QPointer<QObject> &item : items)
        keys.append(item);
    return keys;
}

} // namespace

TreeRow TreeBranchModel::row(const QModelIndex &index) const
{
    return index.isValid()
        ? static_cast<const TreeBranch *>(index.internalPointer())->rowAt(index.row())
        : TreeRow();
}

const TreeBranch *TreeBranchModel::branchAt(const QModelIndex &index) const
{
    if (!index.isValid())
        return &root;
    const auto *above = static_cast<const TreeBranch *>(index.internalPointer());
    return above->branches.empty() ? nullptr : above->branches[size_t(index.row())].get();
}

QModelIndex TreeBranchModel::indexOf(const TreeBranch &branch) const
{
    return branch.parent ? createIndex(branch.row(), 0, branch.parent) : QModelIndex();
}

QModelIndex TreeBranchModel::indexOf(const QObject *designOrItem) const
{
    QList<const TreeBranch *> branches {&root};
    while (!branches.isEmpty()) {
        const TreeBranch *branch = branches.takeLast();
        if (branch->designObject == designOrItem)
            return indexOf(*branch);
        for (qsizetype row = 0; row < branch->items.size(); ++row) {
            if (branch->items[row] == designOrItem)
                return createIndex(int(row), 0, branch);
        }
        for (const auto &below : branch->branches)
            branches.append(below.get());
    }
    return {};
}

QModelIndex TreeBranchModel::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.column() > 0 || column < 0 || column >= TreeColumnCount)
        return {};
    const TreeBranch *branch = branchAt(parent);
    return branch && row >= 0 && row < branch->rowCount() ? createIndex(row, column, branch)
                                                          : QModelIndex();
}

QModelIndex TreeBranchModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(*static_cast<const TreeBranch *>(index.internalPointer()))
                           : QModelIndex();
}

int TreeBranchModel::rowCount(const QModelIndex &parent) const
{
    const TreeBranch *branch = parent.column() > 0 ? nullptr : branchAt(parent);
    return branch ? branch->rowCount() : 0;
}

int TreeBranchModel::columnCount(const QModelIndex &) const { return TreeColumnCount; }

bool TreeBranchModel::hasChildren(const QModelIndex &parent) const { return rowCount(parent) > 0; }

void TreeBranchModel::merge(TreeBranch &branch, TreeBranch &wanted)
{
    if (!wanted.isRead())
        return;
    branch.active = wanted.active;
    mergeBranches(branch, wanted);
    mergeItems(branch, wanted);
    tellChanged(branch);
}

void TreeBranchModel::mergeBranches(TreeBranch &branch, TreeBranch &wanted)
{
    const RowChanges changes = rowChanges(keysOf(branch.branches), keysOf(wanted.branches));
    for (qsizetype i = changes.removals.size() - 1; i >= 0; --i) {
        const auto [first, count] = changes.removals[i];
        beginRemoveRows(indexOf(branch), int(first), int(first + count - 1));
        branch.branches.erase(branch.branches.begin() + first,
                              branch.branches.begin() + first + count);
        endRemoveRows();
    }
    for (const auto [first, count] : changes.insertions) {
        beginInsertRows(indexOf(branch), int(first), int(first + count - 1));
        for (qsizetype row = first; row < first + count; ++row) {
            std::unique_ptr<TreeBranch> &taken = wanted.branches[size_t(row)];
            taken->parent = &branch;
            branch.branches.insert(branch.branches.begin() + row, std::move(taken));
        }
        endInsertRows();
    }
    for (size_t row = 0; row < branch.branches.size(); ++row) {
        if (wanted.branches[row])
            merge(*branch.branches[row], *wanted.branches[row]);
    }
}

void TreeBranchModel::mergeItems(TreeBranch &branch, TreeBranch &wanted)
{
    const RowChanges changes = rowChanges(keysOf(branch.items), keysOf(wanted.items));
    if (changes.removals.size() + changes.insertions.size() > rangeLimit) {
        replaceItems(branch, wanted);
        return;
    }
    for (qsizetype i = changes.removals.size() - 1; i >= 0; --i) {
        const auto [first, count] = changes.removals[i];
        beginRemoveRows(indexOf(branch), int(first), int(first + count - 1));
        branch.items.remove(first, count);
        endRemoveRows();
    }
    for (const auto [first, count] : changes.insertions) {
        beginInsertRows(indexOf(branch), int(first), int(first + count - 1));
        branch.items.insert(first, count, {});
        std::copy_n(wanted.items.cbegin() + first, count, branch.items.begin() + first);
        endInsertRows();
    }
}

void TreeBranchModel::replaceItems(TreeBranch &branch, TreeBranch &wanted)
{
    const QList<QPersistentModelIndex> parents {indexOf(branch)};
    Q_EMIT layoutAboutToBeChanged(parents);
    QHash<const QObject *, int> places;
    for (qsizetype row = 0; row < wanted.items.size(); ++row)
        places.insert(wanted.items[row], int(row));
    QModelIndexList from;
    QModelIndexList to;
    const QModelIndexList known = persistentIndexList();
    for (const QModelIndex &index : known) {
        if (index.internalPointer() != &branch)
            continue;
        const QObject *item = branch.items[index.row()];
        const int row = item ? places.value(item, -1) : -1;
        from.append(index);
        to.append(row < 0 ? QModelIndex() : createIndex(row, index.column(), &branch));
    }
    branch.items = wanted.items;
    changePersistentIndexList(from, to);
    Q_EMIT layoutChanged(parents);
}

void TreeBranchModel::tellRowChanged(const QModelIndex &index)
{
    Q_EMIT dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(TreeColumnCount - 1));
}

void TreeBranchModel::tellChanged(const TreeBranch &branch)
{
    const QModelIndex own = indexOf(branch);
    tellRowChanged(own);
    if (!branch.items.isEmpty())
        Q_EMIT dataChanged(index(0, 0, own),
                           index(branch.rowCount() - 1, TreeColumnCount - 1, own));
}

void TreeBranchModel::tellAllChanged(const TreeBranch &branch)
{
    for (const auto &below : branch.branches) {
        tellChanged(*below);
        tellAllChanged(*below);
    }
}
