#include "console/PopupListWidget.h"

#include <QAbstractItemDelegate>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

QSize PopupListWidget::sizeHint() const
{
    const QMargins margins = contentsMargins();
    const int sides = margins.left() + margins.right();
    const int ends = margins.top() + margins.bottom();
    int width = 0;
    int height = 0;
    for (int row = 0; row < count(); ++row) {
        const QSize item = itemDelegate()->sizeHint(QStyleOptionViewItem(), model()->index(row, 0));
        width = std::max(width, item.width());
        const int next = height + item.height();
        if (next + ends >= maximumHeight())
            return {verticalScrollBar()->sizeHint().width() + sides + width, height + ends};
        height = next;
    }
    return {width + sides, height + ends};
}

void PopupListWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Return)
        Q_EMIT itemActivated(currentItem());
    else
        QAbstractItemView::keyPressEvent(event);
}
