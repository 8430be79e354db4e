#include "app/designs/ColumnFit.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QTreeView>

namespace {

constexpr int milliseconds = 50;
constexpr int most = 60; // characters

} // namespace

ColumnFit::ColumnFit(QTreeView *theTree) : QObject(theTree), tree(theTree)
{
    timer.setSingleShot(true);
    timer.setInterval(milliseconds);
    timer.callOnTimeout(this, &ColumnFit::fit);
    const auto soon = [this] {
        if (!timer.isActive())
            timer.start();
    };
    const QAbstractItemModel *model = tree->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, soon);
    connect(model, &QAbstractItemModel::dataChanged, this, soon);
    connect(model, &QAbstractItemModel::layoutChanged, this, soon);
    connect(model, &QAbstractItemModel::modelReset, this, soon);
    connect(tree, &QTreeView::expanded, this, soon);
    connect(tree->header(), &QHeaderView::sectionResized, this, [this](int column) {
        if (!isFitting && (QGuiApplication::mouseButtons() & Qt::LeftButton))
            setByUser.insert(column);
    });
    fit();
}

void ColumnFit::fit()
{
    isFitting = true;
    QHeaderView *header = tree->header();
    const int widest = header->fontMetrics().averageCharWidth() * most;
    for (int column = 0; column < header->count(); ++column) {
        // The tree itself hides it.
        const QAbstractItemView *rows = tree;
        const int wanted = qMax(header->sectionSizeHint(column), rows->sizeHintForColumn(column));
        if (!setByUser.contains(column) && wanted > header->sectionSize(column))
            header->resizeSection(column, qMin(wanted, widest));
    }
    isFitting = false;
}
