#pragma once

#include "app/designs/ItemStates.h"
#include "app/designs/Throttle.h"
#include "app/designs/TreeBranchModel.h"
#include "app/designs/TreeFilter.h"

#include <QSet>
#include <QTimer>

// The open designs in the order of opening, and what is in them, in the columns of TreeColumn.
//
// It follows the design manager once control is back in the event loop, however many changes were
// made until then, and the longer following takes, the rarer it gets. Rows that stay keep their
// indexes. Nothing of a design or an item is kept but guarded pointers; what is shown is asked for
// when it is shown.
class DesignTreeModel : public TreeBranchModel
{
    Q_OBJECT

public:
    explicit DesignTreeModel(QObject *parent = nullptr);
    ~DesignTreeModel() override;

    // Leaves only items that the filter lets through, and the rows above them.
    void setFilter(const TreeFilter &filter);
    const TreeFilter &filter() const { return shownFilter; }

    // While nobody looks, changes are only noted. Nobody does at first.
    void setWatched(bool watched);
    // Whether there were changes that the rows do not show yet.
    bool isBehind() const { return behind; }

    // Looks anew at what items are on disk and in version control, as rows are shown.
    void lookAgain();
    // Never looks any more, and waits for the thread that does.
    void endLooking() { states.end(); }

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // The files among the rows, for this tree and other programs; null without one.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;

    // Ask for a change by a signal; the rows follow when it is made.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int place, int column,
                      const QModelIndex &parent) override;
    // Files and folders of this machine, dropped on designs that take them.
    bool canDropMimeData(const QMimeData *data, Qt::DropAction action, int place, int column,
                         const QModelIndex &parent) const override;
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }

Q_SIGNALS:
    void valueGiven(const TreeRow &property, const QVariant &value);
    void nameGiven(const TreeRow &file, const QString &name);
    void pathsDropped(const TreeRow &row, const QStringList &paths);
    // Files of this tree.
    void rowsDropped(const TreeRow &row, const QList<TreeRow> &files);

    // Around every change of the rows; behind the second one they show what there is now.
    void aboutToFollow();
    void followed();

private:
    void followManager();
    void changed(MorvalenCore::Interfaces::IDesign *design);
    void followSoon();
    void follow();
    std::unique_ptr<TreeBranch> readAll();
    void tellOfConfiguration(const QObject *configuration);

    std::optional<MorvalenCore::LinkedItemState> stateOf(const TreeRow &row,
                                                         const QModelIndex &index) const;
    QVariant text(const TreeRow &row, const QModelIndex &index) const;
    QVariant icon(const TreeRow &row, const QModelIndex &index) const;
    static QVariant editedValue(const TreeRow &row, int column);

    TreeFilter shownFilter;
    // Rows that are shown ask for what is looked up.
    mutable ItemStates states;

    // What was dragged last.
    mutable QList<TreeRow> dragged;

    bool isWatched = false;
    bool behind = true;
    bool isFilterNew = false;
    QSet<const QObject *> changedDesigns;
    Throttle throttle;
    // Who changes a design often writes its files too.
    QTimer lookTimer;
};
