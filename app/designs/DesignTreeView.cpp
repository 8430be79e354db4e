#include "app/designs/DesignTreeView.h"

#include "app/designs/ColumnFit.h"
#include "app/designs/DesignTreeModel.h"
#include "app/designs/RowDelegate.h"
#include "app/designs/rowtexts.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <map>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;

namespace {

// Nodes with more files than that are closed at first, and filtered rows beyond that stay closed.
constexpr int openFileLimit = 40;
constexpr int openFilteredLimit = 2'000;

// A name for a branch that stays when the branch comes again; empty for an item.
QString nameOf(const TreeRow &row)
{
    const IDesign *design = row.design();
    if (!design || row.isItem())
        return {};
    return design->id(u"."_s) + u'\n' + QString::number(int(row.kind)) + u'\n' + row.name;
}

// The numbers of the rows on the way to a row; rows in this order are in that of the view.
QList<int> placeOf(const QModelIndex &index)
{
    QList<int> place;
    for (QModelIndex at = index; at.isValid(); at = at.parent())
        place.prepend(at.row());
    return place;
}

} // namespace

DesignTreeView::DesignTreeView(DesignTreeModel *treeModel, QWidget *parent)
    : QTreeView(parent),
      tree(treeModel)
{
    setObjectName(u"designs"_s);
    setAccessibleName(tr("Designs"));
    setModel(tree);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setExpandsOnDoubleClick(false);
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setAllColumnsShowFocus(true);
    setItemDelegate(new RowDelegate(this));
    setDragDropMode(DragDrop);
    setDragDropOverwriteMode(true);
    // States are always whole.
    new ColumnFit(this,
                  {{VersionControlColumn, 5},
                   {DetailsColumn, 10},
                   {NameColumn, 26},
                   {DetailsColumn, 5},
                   {NameColumn, 18}});
    connect(tree, &DesignTreeModel::aboutToFollow, this, &DesignTreeView::rememberPlace);
    connect(tree, &DesignTreeModel::followed, this, &DesignTreeView::restorePlace);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex &index) { remember(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex &index) { remember(index, false); });
}

QList<TreeRow> DesignTreeView::selectedRows() const
{
    QModelIndexList indexes = selectionModel()->selectedRows();
    if (indexes.isEmpty() && currentIndex().isValid())
        indexes.append(currentIndex());
    std::map<QList<int>, TreeRow> rows;
    for (const QModelIndex &index : std::as_const(indexes))
        rows.emplace(placeOf(index), tree->row(index));
    QList<TreeRow> ordered;
    for (const auto &[place, row] : rows)
        ordered.append(row);
    return ordered;
}

IDesign *DesignTreeView::selectedDesign() const
{
    IDesign *selected = nullptr;
    for (const QModelIndex &index : selectionModel()->selectedRows()) {
        IDesign *its = tree->row(index).design();
        if (!its || (selected && its != selected))
            return nullptr;
        selected = its;
    }
    return selected;
}

void DesignTreeView::selectDesign(const IDesign *design)
{
    const QModelIndex index = design ? tree->indexOf(design->objectBase()) : QModelIndex();
    if (!index.isValid() || state() == EditingState)
        return;
    // Whatever keys are held.
    selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index, PositionAtTop);
}

TreeRow DesignTreeView::currentRow() const { return tree->row(currentIndex()); }

void DesignTreeView::editValue(const TreeRow &row) { editColumn(row, DetailsColumn); }

void DesignTreeView::editName(const TreeRow &row) { editColumn(row, NameColumn); }

void DesignTreeView::setUnfolded(const QList<TreeRow> &rows, bool unfolded)
{
    for (const QModelIndex &index : selectionModel()->selectedRows()) {
        const TreeRow row = tree->row(index);
        const bool isMeant = std::any_of(rows.cbegin(), rows.cend(), [&row](const TreeRow &meant) {
            return meant.kind == row.kind && meant.designObject == row.designObject
                && meant.name == row.name;
        });
        QModelIndexList open {index};
        while (isMeant && !open.isEmpty()) {
            const QModelIndex branch = open.takeLast();
            for (int below = 0; below < tree->rowCount(branch); ++below) {
                if (!tree->row(tree->index(below, 0, branch)).isItem())
                    open.append(tree->index(below, 0, branch));
            }
            setExpanded(branch, unfolded);
        }
    }
}

// The usual way would take what was dragged out of the model.
void DesignTreeView::startDrag(Qt::DropActions)
{
    QMimeData *content = tree->mimeData(selectionModel()->selectedRows());
    if (!content)
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(content);
    drag->exec(Qt::CopyAction);
}

void DesignTreeView::editColumn(const TreeRow &row, int column)
{
    const QModelIndex index = tree->indexOf(row.item).siblingAtColumn(column);
    if (index.isValid() && (tree->flags(index) & Qt::ItemIsEditable) != 0) {
        setCurrentIndex(index);
        edit(index);
    }
}

void DesignTreeView::applyFilter(const QString &text)
{
    const QScopedValueRollback silence(isRemembering, false);
    tree->setFilter(TreeFilter(text));
    for (int row = 0; row < tree->rowCount(); ++row)
        openUp(tree->index(row, 0));
    scrollTo(currentIndex());
}

QStringList DesignTreeView::foldedBranches() const
{
    QStringList names = (knownBranches - openBranches).values();
    names.sort();
    return names;
}

QStringList DesignTreeView::unfoldedBranches() const
{
    QStringList names = openBranches.values();
    names.sort();
    return names;
}

void DesignTreeView::setFolding(const QStringList &folded, const QStringList &unfolded)
{
    openBranches = QSet<QString>(unfolded.cbegin(), unfolded.cend());
    knownBranches = openBranches + QSet<QString>(folded.cbegin(), folded.cend());
}

void DesignTreeView::remember(const QModelIndex &index, bool isOpen)
{
    if (!isRemembering)
        return;
    const QString name = nameOf(tree->row(index));
    if (isOpen)
        openBranches.insert(name);
    else
        openBranches.remove(name);
}

void DesignTreeView::rowsInserted(const QModelIndex &parent, int start, int end)
{
    QTreeView::rowsInserted(parent, start, end);
    if (tree->row(parent).kind == RowKind::Node)
        return;
    const QScopedValueRollback silence(isRemembering, false);
    for (int row = start; row <= end; ++row)
        openUp(tree->index(row, 0, parent));
}

// Opens a branch, and those below, as they were; one that is new opens unless it is long.
void DesignTreeView::openUp(const QModelIndex &index)
{
    const TreeRow row = tree->row(index);
    if (!index.isValid() || row.isItem())
        return;
    const QString name = nameOf(row);
    const int rows = tree->rowCount(index);
    if (!tree->filter().isEmpty()) {
        setExpanded(index, rows <= openFilteredLimit);
    } else {
        if (!knownBranches.contains(name) && (rows <= openFileLimit || row.kind != RowKind::Node))
            openBranches.insert(name);
        knownBranches.insert(name);
        setExpanded(index, openBranches.contains(name));
    }
    for (int below = 0; below < rows; ++below) {
        const QModelIndex child = tree->index(below, 0, index);
        if (tree->row(child).isItem())
            return;
        openUp(child);
    }
}

void DesignTreeView::rememberPlace()
{
    topRow = indexAt(QPoint(0, 0));
    topOffset = topRow.isValid() ? visualRect(topRow).top() : 0;
    currentParent = currentIndex().parent();
    currentPlace = currentIndex().row();
}

// Whoever goes on with the keys does so from where the row was.
void DesignTreeView::restoreCurrent()
{
    const QModelIndex parent = std::exchange(currentParent, {});
    const int place = std::min(currentPlace, tree->rowCount(parent) - 1);
    if (!parent.isValid() || currentIndex().isValid())
        return;
    selectionModel()->setCurrentIndex(place < 0 ? parent : tree->index(place, 0, parent),
                                      QItemSelectionModel::NoUpdate);
}

void DesignTreeView::restorePlace()
{
    restoreCurrent();
    const QModelIndex top = std::exchange(topRow, {});
    if (!top.isValid() || verticalScrollBar()->value() == 0)
        return;
    executeDelayedItemsLayout();
    const int moved = visualRect(top).top() - topOffset;
    if (moved == 0)
        return;
    const int step = verticalScrollMode() == ScrollPerItem ? std::max(1, rowHeight(top)) : 1;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + moved / step);
}

void DesignTreeView::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // The key that ends a name that is typed comes here, too.
    if (isReturn && state() == EditingState)
        QTreeView::keyPressEvent(event);
    else if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == 0
             && currentIndex().isValid())
        activateRow(currentIndex());
    else if (event->keyCombination() == (Qt::SHIFT | Qt::Key_F10))
        askForMenu();
    else
        QTreeView::keyPressEvent(event);
}

void DesignTreeView::askForMenu()
{
    const QRect rect = visualRect(currentIndex());
    Q_EMIT menuAsked(viewport()->mapToGlobal(rect.bottomLeft()));
}

void DesignTreeView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QTreeView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid())
        activateRow(index);
}

// Groups have nothing to do but to open and close.
void DesignTreeView::activateRow(const QModelIndex &index)
{
    const TreeRow row = tree->row(index);
    if (row.isItem() || row.kind == RowKind::Design)
        Q_EMIT rowActivated(row);
    else
        setExpanded(index.siblingAtColumn(0), !isExpanded(index.siblingAtColumn(0)));
}

void DesignTreeView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        askForMenu();
    else
        Q_EMIT menuAsked(event->globalPos());
}

void DesignTreeView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    if (tree->filter().isEmpty() || tree->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, tr("No item matches the filter"));
}
