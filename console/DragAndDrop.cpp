#include "console/DragAndDrop.h"

#include "console/EditionZone.h"

#include <QApplication>
#include <QDrag>
#include <QMouseEvent>
#include <QTextEdit>

// The widget keeps a selection only for a press that may begin a drag.
void DragAndDrop::press(const QMouseEvent &event, const QTextCursor &before)
{
    const QTextCursor now = view->textCursor();
    const bool kept = before.hasSelection() && now.anchor() == before.anchor()
        && now.position() == before.position();
    start.reset();
    if (kept && event.button() == Qt::LeftButton && !zone->containsSelection())
        start = event.position().toPoint();
}

// The widget's own drag would offer to move the text, and remove it then.
bool DragAndDrop::move(const QMouseEvent &event, const std::function<QMimeData *()> &makeData)
{
    if (!start || !(event.buttons() & Qt::LeftButton))
        return false;
    const QPoint way = event.position().toPoint() - *start;
    if (way.manhattanLength() < QApplication::startDragDistance())
        return true;
    start.reset();
    auto *drag = new QDrag(view);
    drag->setMimeData(makeData());
    drag->exec(Qt::CopyAction);
    return true;
}

void DragAndDrop::over(QDragMoveEvent *event) const
{
    const QTextCursor target = view->cursorForPosition(event->position().toPoint());
    if (zone->contains(target))
        event->accept(view->cursorRect(target));
    else
        event->ignore(view->cursorRect(target));
}

// The widget inserts at the place of the drop, and may take the selection away for it. Outside the
// edition zone neither may happen, and the source must not take the text for moved.
void DragAndDrop::drop(QDropEvent *event, int fallback, const std::function<void()> &insert) const
{
    if (!zone->containsCursor()) {
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(qBound(0, fallback, view->document()->characterCount() - 1));
        view->setTextCursor(cursor);
    }
    if (zone->contains(view->cursorForPosition(event->position().toPoint())))
        return insert();
    const QTextCursor kept = view->textCursor();
    event->setDropAction(Qt::CopyAction);
    insert();
    view->setTextCursor(kept);
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
}
