#include "console/QConsole.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;

void QConsole::mousePressEvent(QMouseEvent *event)
{
    oldPosition = textCursor().position();
    if (event->button() == Qt::MiddleButton) {
        copy();
        setTextCursor(cursorForPosition(event->position().toPoint()));
        paste();
        return;
    }
    const QTextCursor before = textCursor();
    QTextEdit::mousePressEvent(event);
    // The widget keeps a selection only for a press that may begin a drag.
    const bool kept = before.hasSelection() && textCursor().anchor() == before.anchor()
        && textCursor().position() == before.position();
    copyDragStart.reset();
    if (kept && event->button() == Qt::LeftButton && !isSelectionInEditionZone())
        copyDragStart = event->position().toPoint();
}

// The press of the middle button has pasted; the widget would paste the selection once more.
void QConsole::mouseReleaseEvent(QMouseEvent *event)
{
    copyDragStart.reset();
    if (event->button() != Qt::MiddleButton)
        QTextEdit::mouseReleaseEvent(event);
}

// Text outside the edition zone is dragged as a copy: the widget's own drag would offer to move it,
// and remove it then.
void QConsole::mouseMoveEvent(QMouseEvent *event)
{
    if (!copyDragStart || !(event->buttons() & Qt::LeftButton))
        return QTextEdit::mouseMoveEvent(event);
    const QPoint way = event->position().toPoint() - *copyDragStart;
    if (way.manhattanLength() < QApplication::startDragDistance())
        return;
    copyDragStart.reset();
    auto *drag = new QDrag(this);
    drag->setMimeData(createMimeDataFromSelection());
    drag->exec(Qt::CopyAction);
}

void QConsole::dragMoveEvent(QDragMoveEvent *event)
{
    const QTextCursor target = cursorForPosition(event->position().toPoint());
    if (isInEditionZone(target))
        event->accept(cursorRect(target));
    else
        event->ignore(cursorRect(target));
}

// The widget inserts at the place of the drop, and may take the selection away for it. Outside the
// edition zone neither may happen, and the source must not take the text for moved.
void QConsole::dropEvent(QDropEvent *event)
{
    if (!isInEditionZone()) {
        QTextCursor cursor = textCursor();
        cursor.setPosition(qBound(0, oldPosition, document()->characterCount() - 1));
        setTextCursor(cursor);
    }
    if (isInEditionZone(cursorForPosition(event->position().toPoint())))
        return QTextEdit::dropEvent(event);
    const QTextCursor kept = textCursor();
    event->setDropAction(Qt::CopyAction);
    QTextEdit::dropEvent(event);
    setTextCursor(kept);
    event->setDropAction(Qt::IgnoreAction);
    event->ignore();
}

void QConsole::contextMenuEvent(QContextMenuEvent *event)
{
    const QPointer<QMenu> menu = new QMenu(this);
    const auto add = [this, &menu](const QString &text, const char *shortcut, auto slot) {
        auto *action = new QAction(text, this);
        action->setShortcut(QKeySequence(QString::fromLatin1(shortcut)));
        connect(action, &QAction::triggered, this, slot);
        menu->addAction(action);
    };
    add(tr("Undo"), "Ctrl+Z", &QConsole::undo);
    add(tr("Redo"), "Ctrl+Y", &QConsole::redo);
    menu->addSeparator();
    add(tr("Cut"), "Ctrl+X", &QConsole::cut);
    add(tr("Copy"), "Ctrl+Ins", &QConsole::copy);
    add(tr("Paste"), "Ctrl+V", &QConsole::paste);
    add(tr("Delete"), "Del", &QConsole::del);
    menu->addSeparator();
    add(tr("Select All"), "Ctrl+A", &QConsole::selectAll);
    menu->exec(event->globalPos());
    delete menu;
}
