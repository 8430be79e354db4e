#pragma once

#include <QStyledItemDelegate>

namespace Qtilities::CoreGui {

// Paints the text of a log's line with its links underlined, and opens it to be read as a field,
// which leaves it as it is.
class LineDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override { }

    // Where the link at a place of the cell begins in the text; -1 when there is none.
    static qsizetype linkAt(int x, const QStyleOptionViewItem &option, const QString &text);
};

} // namespace Qtilities::CoreGui
