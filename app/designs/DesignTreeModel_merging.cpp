// How the rows become others: with as few changes as possible, so that views keep what they know
// of the rows that stay.

#include "app/designs/DesignTreeModel.h"
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

void DesignTreeModel::merge(TreeBranch &branch, TreeBranch &wanted)
{
    if (!wanted.isRead())
        return;
    branch.active = wanted.active;
    mergeBranches(branch, wanted);
    mergeItems(branch, wanted);
    tellChanged(branch);
}

void DesignTreeModel::mergeBranches(TreeBranch &branch, TreeBranch &wanted)
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

void DesignTreeModel::mergeItems(TreeBranch &branch, TreeBranch &wanted)
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

void DesignTreeModel::replaceItems(TreeBranch &branch, TreeBranch &wanted)
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

void DesignTreeModel::tellChanged(const TreeBranch &branch)
{
    const QModelIndex own = indexOf(branch);
    Q_EMIT dataChanged(own, own.siblingAtColumn(TreeColumnCount - 1));
    if (!branch.items.isEmpty())
        Q_EMIT dataChanged(index(0, 0, own),
                           index(branch.rowCount() - 1, TreeColumnCount - 1, own));
}

void DesignTreeModel::tellAllChanged(const TreeBranch &branch)
{
    for (const auto &below : branch.branches) {
        tellChanged(*below);
        tellAllChanged(*below);
    }
}

void DesignTreeModel::tellOfConfiguration(const QObject *configuration)
{
    const QModelIndex index = indexOf(configuration);
    if (index.isValid())
        Q_EMIT dataChanged(index, index.siblingAtColumn(TreeColumnCount - 1));
}
