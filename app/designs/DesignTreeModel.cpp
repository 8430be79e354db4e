#include "app/designs/DesignTreeModel.h"

#include "app/designs/rowicons.h"
#include "app/designs/rowtexts.h"

#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/DesignManager.h>

#include <QFont>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildMonitor;
using MorvalenCore::DesignManager;
using MorvalenCore::LinkedItemState;
using MorvalenCore::Interfaces::IDesign;

namespace {

// Following that takes longer than so many milliseconds takes at most one part of so many of the
// time of a script that lets events in.
constexpr qint64 unnoticed = 16;
constexpr qint64 restFactor = 5;

// Behind a change, in milliseconds.
constexpr int lookDelay = 300;

} // namespace

DesignTreeModel::DesignTreeModel(QObject *parent) : QAbstractItemModel(parent)
{
    followTimer.setSingleShot(true);
    lookTimer.setSingleShot(true);
    lookTimer.setInterval(lookDelay);
    connect(&lookTimer, &QTimer::timeout, this, &DesignTreeModel::lookAgain);
    connect(&followTimer, &QTimer::timeout, this, &DesignTreeModel::follow);
    connect(&states, &ItemStates::found, this, [this](const QModelIndex &index) {
        Q_EMIT dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(TreeColumnCount - 1));
    });
    followManager();
}

DesignTreeModel::~DesignTreeModel() = default;

void DesignTreeModel::followManager()
{
    const DesignManager *manager = DesignManager::instance();
    connect(manager, &DesignManager::designAttached, this, &DesignTreeModel::followSoon);
    connect(manager, &DesignManager::designClosed, this, &DesignTreeModel::followSoon);
    connect(manager, &DesignManager::activeDesignChanged, this, &DesignTreeModel::followSoon);
    connect(manager, &DesignManager::designIdChanged, this,
            [this, manager](const QString &, const QString &id) { changed(manager->design(id)); });
    connect(manager, &DesignManager::designChanged, this,
            [this, manager](const QString &id) { changed(manager->design(id)); });
    connect(BuildMonitor::instance(), &BuildMonitor::started, this,
            &DesignTreeModel::tellOfConfiguration);
    connect(BuildMonitor::instance(), &BuildMonitor::ended, this,
            [this](const QObject *configuration) {
                tellOfConfiguration(configuration);
                lookAgain();
            });
}

void DesignTreeModel::setFilter(const TreeFilter &filter)
{
    if (filter == shownFilter)
        return;
    shownFilter = filter;
    isFilterNew = true;
    follow();
}

void DesignTreeModel::setWatched(bool watched)
{
    isWatched = watched;
    if (watched && behind)
        follow();
}

void DesignTreeModel::lookAgain()
{
    states.expire();
    tellAllChanged(root);
}

void DesignTreeModel::changed(IDesign *design)
{
    if (design)
        changedDesigns.insert(design->objectBase());
    followSoon();
}

void DesignTreeModel::followSoon()
{
    behind = true;
    if (!isWatched || followTimer.isActive())
        return;
    const qint64 rest = lastEffort > unnoticed ? restFactor * lastEffort : 0;
    const qint64 past = sinceFollowed.isValid() ? sinceFollowed.elapsed() : rest;
    followTimer.start(int(std::max<qint64>(0, rest - past)));
}

void DesignTreeModel::follow()
{
    QElapsedTimer effort;
    effort.start();
    behind = false;
    Q_EMIT aboutToFollow();
    const std::unique_ptr<TreeBranch> wanted = readAll();
    mergeBranches(root, *wanted);
    if (const int designs = rowCount(); designs > 0)
        Q_EMIT dataChanged(index(0, 0), index(designs - 1, TreeColumnCount - 1));
    lastEffort = effort.elapsed();
    sinceFollowed.start();
    if (!lookTimer.isActive())
        lookTimer.start();
    Q_EMIT followed();
}

std::unique_ptr<TreeBranch> DesignTreeModel::readAll()
{
    const QSet<const QObject *> changes = std::exchange(changedDesigns, {});
    QList<const QObject *> known;
    if (!std::exchange(isFilterNew, false)) {
        for (const auto &branch : root.branches)
            known.append(branch->designObject);
    }
    auto all = std::make_unique<TreeBranch>(RowKind::Root);
    qsizetype lastKnown = -1;
    const DesignManager *manager = DesignManager::instance();
    const QStringList ids = manager->openDesignIds();
    for (const QString &id : ids) {
        IDesign *design = manager->design(id);
        if (!design)
            continue;
        // One that comes behind others than before is a new row.
        const qsizetype place = known.indexOf(design->objectBase());
        if (place > lastKnown && !changes.contains(design->objectBase())) {
            all->add(TreeBranch::unread(*design));
        } else {
            std::unique_ptr<TreeBranch> branch = TreeBranch::read(*design, shownFilter);
            if (shownFilter.isEmpty() || branch->itemCount() > 0)
                all->add(std::move(branch));
        }
        lastKnown = std::max(lastKnown, place);
    }
    return all;
}

TreeRow DesignTreeModel::row(const QModelIndex &index) const
{
    return index.isValid()
        ? static_cast<const TreeBranch *>(index.internalPointer())->rowAt(index.row())
        : TreeRow();
}

TreeBranch *DesignTreeModel::branchAt(const QModelIndex &index) const
{
    if (!index.isValid())
        return const_cast<TreeBranch *>(&root);
    const auto *above = static_cast<const TreeBranch *>(index.internalPointer());
    return above->branches.empty() ? nullptr : above->branches[size_t(index.row())].get();
}

QModelIndex DesignTreeModel::indexOf(const TreeBranch &branch) const
{
    return branch.parent ? createIndex(branch.row(), 0, branch.parent) : QModelIndex();
}

QModelIndex DesignTreeModel::indexOf(const QObject *designOrItem) const
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

QModelIndex DesignTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.column() > 0 || column < 0 || column >= TreeColumnCount)
        return {};
    const TreeBranch *branch = branchAt(parent);
    return branch && row >= 0 && row < branch->rowCount() ? createIndex(row, column, branch)
                                                          : QModelIndex();
}

QModelIndex DesignTreeModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(*static_cast<const TreeBranch *>(index.internalPointer()))
                           : QModelIndex();
}

int DesignTreeModel::rowCount(const QModelIndex &parent) const
{
    const TreeBranch *branch = parent.column() > 0 ? nullptr : branchAt(parent);
    return branch ? branch->rowCount() : 0;
}

int DesignTreeModel::columnCount(const QModelIndex &) const { return TreeColumnCount; }

bool DesignTreeModel::hasChildren(const QModelIndex &parent) const { return rowCount(parent) > 0; }

QVariant DesignTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(row(index), index);
    case Qt::EditRole:
        return editedValue(row(index), index.column());
    case Qt::ToolTipRole:
        return rowtexts::toolTip(row(index));
    case Qt::DecorationRole:
        return index.column() == NameColumn ? icon(row(index), index) : QVariant();
    case Qt::FontRole:
        if (row(index).active) {
            QFont font;
            font.setBold(true);
            return font;
        }
        return {};
    default:
        return {};
    }
}

QVariant DesignTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= TreeColumnCount)
        return QAbstractItemModel::headerData(section, orientation, role);
    return rowtexts::header(section);
}

std::optional<LinkedItemState> DesignTreeModel::stateOf(const TreeRow &row,
                                                        const QModelIndex &index) const
{
    if (const auto *file = row.file())
        return states.state(row.item, *file, index);
    if (const auto *folder = row.folder())
        return states.state(row.item, *folder, index);
    return std::nullopt;
}

QVariant DesignTreeModel::icon(const TreeRow &row, const QModelIndex &index) const
{
    const std::optional<LinkedItemState> state = stateOf(row, index);
    return rowicons::icon(row.kind, state && !state->existsOnDisk);
}

QVariant DesignTreeModel::text(const TreeRow &row, const QModelIndex &index) const
{
    switch (index.column()) {
    case NameColumn:
        return rowtexts::name(row);
    case DetailsColumn: {
        const TreeBranch *branch = branchAt(index);
        return rowtexts::details(row, branch ? branch->itemCount() : 0);
    }
    case VersionControlColumn:
        return rowtexts::versionControl(stateOf(row, index));
    default:
        return rowtexts::states(row, stateOf(row, index)).join(", "_L1);
    }
}
