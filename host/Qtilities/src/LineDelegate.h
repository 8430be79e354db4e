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
    // What is equal to the text, in any case, is marked from now on.
    void setMarked(const QString &text) { marked = text; }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override { }

    // Where the link at a place of the cell begins in the text; -1 when there is none.
    static qsizetype linkAt(int x, const QStyleOptionViewItem &option, const QString &text);

private:
    void paintMarks(QPainter *painter, const QStyleOptionViewItem &shown,
                    const QString &text) const;

    QString marked;
};

} // namespace Qtilities::CoreGui
