#include "app/window/RedoKey.h"

#include "app/window/editkeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

RedoKey::RedoKey(QObject *parent) : QObject(parent) { qApp->installEventFilter(this); }

// A shortcut of the same key, as the editors have it, was found before the key comes here.
bool RedoKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const QKeyCombination key = static_cast<QKeyEvent *>(event)->keyCombination();
    if (key != QKeyCombination(Qt::CTRL, Qt::Key_Y))
        return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    const bool isText = qobject_cast<QLineEdit *>(widget) || qobject_cast<QTextEdit *>(widget)
        || qobject_cast<QPlainTextEdit *>(widget);
    const QKeySequence redo(QKeySequence::Redo);
    if (!isText || redo.isEmpty() || redo[0] == key)
        return false;
    editkeys::press(widget, redo[0]);
    return true;
}
