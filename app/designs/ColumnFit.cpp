#include "app/designs/ColumnFit.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTreeView>

#include <algorithm>
#include <numeric>

namespace {

constexpr int milliseconds = 50;
// In characters.
constexpr int most = 60;
constexpr int least = 4;

} // namespace

ColumnFit::ColumnFit(QTreeView *theTree, const QList<Elided> &elided)
    : QObject(theTree),
      tree(theTree),
      elidable(elided),
      widestYet(theTree->header()->count(), 0)
{
    timer.setSingleShot(true);
    timer.setInterval(milliseconds);
    timer.callOnTimeout(this, &ColumnFit::fit);
    // Qt's own least width is that of a font's widest letter, which is a whole word.
    tree->header()->setMinimumSectionSize(tree->fontMetrics().averageCharWidth() * least);
    tree->header()->setStretchLastSection(false);
    tree->viewport()->installEventFilter(this);
    followRows();
    connect(tree->header(), &QHeaderView::sectionResized, this, [this](int column) {
        if (isFitting)
            return;
        if ((QGuiApplication::mouseButtons() & Qt::LeftButton) != 0)
            setByUser.insert(column);
        fitSoon();
    });
    fit();
}

bool ColumnFit::eventFilter(QObject *, QEvent *event)
{
    // At once, so that no scroll bar comes and goes.
    if (event->type() == QEvent::Resize)
        fit();
    return false;
}

void ColumnFit::followRows()
{
    const QAbstractItemModel *model = tree->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &ColumnFit::fitSoon);
    connect(model, &QAbstractItemModel::dataChanged, this, &ColumnFit::fitSoon);
    connect(model, &QAbstractItemModel::layoutChanged, this, &ColumnFit::fitSoon);
    connect(model, &QAbstractItemModel::modelReset, this, &ColumnFit::fitSoon);
    connect(tree, &QTreeView::expanded, this, &ColumnFit::fitSoon);
    connect(tree->verticalScrollBar(), &QScrollBar::valueChanged, this, &ColumnFit::fitSoon);
}

void ColumnFit::fitSoon()
{
    if (!timer.isActive())
        timer.start();
}

QList<int> ColumnFit::wishes()
{
    const QHeaderView *header = tree->header();
    const int widest = header->fontMetrics().averageCharWidth() * most;
    // The tree itself hides it.
    const QAbstractItemView *rows = tree;
    QList<int> wanted;
    for (int column = 0; column < header->count(); ++column) {
        int &yet = widestYet[column];
        yet = std::max(
            {yet, header->sectionSizeHint(column), qMin(rows->sizeHintForColumn(column), widest)});
        wanted.append(setByUser.contains(column) ? header->sectionSize(column) : yet);
    }
    return wanted;
}

void ColumnFit::fit()
{
    if (isFitting)
        return;
    const QScopedValueRollback once(isFitting, true);
    QHeaderView *header = tree->header();
    QList<int> widths = wishes();
    int over = std::accumulate(widths.cbegin(), widths.cend(), 0) - tree->viewport()->width();
    for (const Elided &may : std::as_const(elidable)) {
        if (over <= 0 || setByUser.contains(may.column))
            continue;
        int &width = widths[may.column];
        const int readable = header->fontMetrics().averageCharWidth() * may.characters;
        const int given = qBound(0, width - readable, over);
        width -= given;
        over -= given;
    }
    // The last one takes what is left.
    widths.last() += qMax(0, -over);
    for (int column = 0; column < header->count(); ++column) {
        if (!setByUser.contains(column))
            header->resizeSection(column, widths.at(column));
    }
}
