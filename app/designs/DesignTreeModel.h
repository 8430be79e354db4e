#pragma once

#include "app/designs/ItemStates.h"
#include "app/designs/TreeBranch.h"
#include "app/designs/TreeFilter.h"

#include <QAbstractItemModel>
#include <QElapsedTimer>
#include <QSet>
#include <QTimer>

// The open designs in the order of opening, and what is in them, in the columns of TreeColumn.
//
// It follows the design manager once control is back in the event loop, however many changes were
// made until then, and the longer following takes, the rarer it gets. Rows that stay keep their
// indexes. Nothing of a design or an item is kept but guarded pointers; what is shown is asked for
// when it is shown.
class DesignTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit DesignTreeModel(QObject *parent = nullptr);
    ~DesignTreeModel() override;

    // What a row stands for; the root for an invalid index.
    TreeRow row(const QModelIndex &index) const;
    // The index of an item or a design; invalid when it is not there.
    QModelIndex indexOf(const QObject *designOrItem) const;

    // Leaves only items that the filter lets through, and the rows above them.
    void setFilter(const TreeFilter &filter);
    const TreeFilter &filter() const { return shownFilter; }

    // While nobody looks, changes are only noted. Nobody does at first.
    void setWatched(bool watched);
    // Whether there were changes that the rows do not show yet.
    bool isBehind() const { return behind; }

    // Looks anew at what items are on disk and in version control, as rows are shown.
    void lookAgain();

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Ask for a change by a signal; the rows follow when it is made.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;
    // Files and folders of this machine, dropped on designs that take them.
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                         const QModelIndex &parent) const override;
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }

Q_SIGNALS:
    void valueGiven(const TreeRow &property, const QVariant &value);
    void pathsDropped(const TreeRow &row, const QStringList &paths);

    // Around every change of the rows; behind the second one they show what there is now.
    void aboutToFollow();
    void followed();

private:
    void followManager();
    void changed(MorvalenCore::Interfaces::IDesign *design);
    void followSoon();
    void follow();
    std::unique_ptr<TreeBranch> readAll();
    TreeBranch *branchAt(const QModelIndex &index) const;
    QModelIndex indexOf(const TreeBranch &branch) const;

    // Make a branch what another one is, which is taken apart.
    void merge(TreeBranch &branch, TreeBranch &wanted);
    void mergeBranches(TreeBranch &branch, TreeBranch &wanted);
    void mergeItems(TreeBranch &branch, TreeBranch &wanted);
    void replaceItems(TreeBranch &branch, TreeBranch &wanted);
    void tellChanged(const TreeBranch &branch);
    void tellAllChanged(const TreeBranch &branch);
    void tellOfConfiguration(const QObject *configuration);

    std::optional<MorvalenCore::LinkedItemState> stateOf(const TreeRow &row,
                                                         const QModelIndex &index) const;
    QVariant text(const TreeRow &row, const QModelIndex &index) const;
    QVariant icon(const TreeRow &row, const QModelIndex &index) const;
    static QVariant editedValue(const TreeRow &row, int column);

    TreeBranch root {RowKind::Root};
    TreeFilter shownFilter;
    // Rows that are shown ask for what is looked up.
    mutable ItemStates states;

    bool isWatched = false;
    bool behind = true;
    bool isFilterNew = false;
    QSet<const QObject *> changedDesigns;
    QTimer followTimer;
    QElapsedTimer sinceFollowed;
    qint64 lastEffort = 0;
    // Who changes a design often writes its files too.
    QTimer lookTimer;
};
