#include "app/designs/DesignTreeModel.h"

#include "app/designs/dropping.h"
#include "app/designs/rowicons.h"
#include "app/designs/rowtexts.h"

#include <MorvalenCore/BuildMonitor.h>
#include <MorvalenCore/DesignManager.h>

#include <QFont>
#include <QMimeData>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::BuildMonitor;
using MorvalenCore::DesignManager;
using MorvalenCore::DesignProperty;
using MorvalenCore::LinkedItemState;
using MorvalenCore::Interfaces::IDesign;

namespace {

// Behind a change, in milliseconds.
constexpr int lookDelay = 300;

} // namespace

DesignTreeModel::DesignTreeModel(QObject *parent) : TreeBranchModel(parent)
{
    lookTimer.setSingleShot(true);
    lookTimer.setInterval(lookDelay);
    connect(&lookTimer, &QTimer::timeout, this, &DesignTreeModel::lookAgain);
    connect(&throttle, &Throttle::due, this, &DesignTreeModel::follow);
    connect(&states, &ItemStates::found, this, &DesignTreeModel::tellRowChanged);
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
    tellAllChanged();
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
    if (isWatched)
        throttle.request();
}

void DesignTreeModel::follow()
{
    throttle.begin();
    behind = false;
    Q_EMIT aboutToFollow();
    const std::unique_ptr<TreeBranch> wanted = readAll();
    become(*wanted);
    if (const int designs = rowCount(); designs > 0)
        Q_EMIT dataChanged(index(0, 0), index(designs - 1, TreeColumnCount - 1));
    throttle.end();
    if (!lookTimer.isActive())
        lookTimer.start();
    Q_EMIT followed();
}

std::unique_ptr<TreeBranch> DesignTreeModel::readAll()
{
    const QSet<const QObject *> changes = std::exchange(changedDesigns, {});
    QList<const QObject *> known;
    if (!std::exchange(isFilterNew, false)) {
        for (const auto &branch : designBranches())
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
        return TreeBranchModel::headerData(section, orientation, role);
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

Qt::ItemFlags DesignTreeModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = TreeBranchModel::flags(index);
    if (!index.isValid())
        return flags;
    const TreeRow given = row(index);
    if (dropping::takesFiles(given.kind))
        flags |= Qt::ItemIsDropEnabled;
    if (given.file())
        flags |= Qt::ItemIsDragEnabled;
    const bool isWritable = given.design() && !given.design()->isReadOnly();
    if (index.column() == NameColumn && given.file() && isWritable)
        flags |= Qt::ItemIsEditable;
    const DesignProperty *property = given.property();
    if (index.column() == DetailsColumn && property && !property->propertyData().isReadOnly())
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant DesignTreeModel::editedValue(const TreeRow &row, int column)
{
    if (column == NameColumn && row.file())
        return row.file()->fileName();
    const DesignProperty *property = column == DetailsColumn ? row.property() : nullptr;
    return property ? property->propertyData().value() : QVariant();
}

bool DesignTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || (flags(index) & Qt::ItemIsEditable) == 0)
        return false;
    if (index.column() == NameColumn)
        Q_EMIT nameGiven(row(index), value.toString());
    else
        Q_EMIT valueGiven(row(index), value);
    return true;
}

QStringList DesignTreeModel::mimeTypes() const { return dropping::mimeTypes(); }

QMimeData *DesignTreeModel::mimeData(const QModelIndexList &indexes) const
{
    dragged.clear();
    for (const QModelIndex &index : indexes) {
        if (index.column() == NameColumn && row(index).file())
            dragged.append(row(index));
    }
    return dragged.isEmpty() ? nullptr : dropping::dataOf(dragged);
}

// A place between two rows is none of them.
bool DesignTreeModel::canDropMimeData(const QMimeData *data, Qt::DropAction, int place, int,
                                      const QModelIndex &parent) const
{
    return place < 0 && dropping::mayDrop(*data, row(parent));
}

bool DesignTreeModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int place,
                                   int column, const QModelIndex &parent)
{
    if (!canDropMimeData(data, action, place, column, parent))
        return false;
    if (dropping::isOwn(*data))
        Q_EMIT rowsDropped(row(parent), dragged);
    else
        Q_EMIT pathsDropped(row(parent), dropping::paths(*data));
    return true;
}

void DesignTreeModel::tellOfConfiguration(const QObject *configuration)
{
    const QModelIndex index = indexOf(configuration);
    if (index.isValid())
        tellRowChanged(index);
}
