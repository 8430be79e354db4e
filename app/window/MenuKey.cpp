#include "app/window/MenuKey.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

MenuKey::MenuKey(QObject *parent) : QObject(parent) { qApp->installEventFilter(this); }

// The console has its own keys.
bool MenuKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress
        || static_cast<QKeyEvent *>(event)->keyCombination() != (Qt::SHIFT | Qt::Key_F10))
        return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    const bool hasMenu = qobject_cast<QAbstractItemView *>(widget)
        || qobject_cast<QLineEdit *>(widget) || qobject_cast<QPlainTextEdit *>(widget);
    if (!hasMenu || !widget->isEnabled())
        return false;
    const QPoint place = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &asked);
    return asked.isAccepted();
}
