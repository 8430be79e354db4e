#include "app/window/editkeys.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace editkeys {

namespace {

bool isKey(QKeyCombination key, QKeySequence::StandardKey standard)
{
    return QKeySequence::keyBindings(standard).contains(QKeySequence(key));
}

// What a text is like at the moment.
struct TextState
{
    bool isReadOnly = false;
    bool hasSelection = false;
    bool isEmpty = false;
    bool canUndo = false;
    bool canRedo = false;
};

bool can(const TextState &text, QKeyCombination key)
{
    if (isKey(key, QKeySequence::SelectAll))
        return !text.isEmpty;
    if (isKey(key, QKeySequence::Copy))
        return text.hasSelection;
    if (text.isReadOnly)
        return false;
    if (isKey(key, QKeySequence::Undo))
        return text.canUndo;
    if (isKey(key, QKeySequence::Redo))
        return text.canRedo;
    return isKey(key, QKeySequence::Paste)
        || (text.hasSelection
            && (isKey(key, QKeySequence::Cut) || isKey(key, QKeySequence::Delete)));
}

template <typename Edit>
TextState stateOf(const Edit &edit)
{
    const QTextDocument *document = edit.document();
    return {edit.isReadOnly(), edit.textCursor().hasSelection(), document->isEmpty(),
            document->isUndoAvailable(), document->isRedoAvailable()};
}

// Lists copy their current row and select them all.
bool canInList(const QAbstractItemView &list, QKeyCombination key)
{
    if (isKey(key, QKeySequence::Copy))
        return list.currentIndex().isValid();
    const bool selectsSeveral = list.selectionMode() == QAbstractItemView::ExtendedSelection
        || list.selectionMode() == QAbstractItemView::MultiSelection;
    return isKey(key, QKeySequence::SelectAll) && selectsSeveral && list.model()
        && list.model()->rowCount() > 0;
}

} // namespace

bool knows(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QPlainTextEdit *>(widget)
        || qobject_cast<const QTextEdit *>(widget)
        || qobject_cast<const QAbstractItemView *>(widget);
}

bool can(QWidget *widget, QKeyCombination key)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(widget))
        return can(TextState {line->isReadOnly(), line->hasSelectedText(), line->text().isEmpty(),
                              line->isUndoAvailable(), line->isRedoAvailable()},
                   key);
    if (const auto *plain = qobject_cast<const QPlainTextEdit *>(widget))
        return can(stateOf(*plain), key);
    if (const auto *text = qobject_cast<const QTextEdit *>(widget))
        return can(stateOf(*text), key);
    const auto *list = qobject_cast<const QAbstractItemView *>(widget);
    return list && canInList(*list, key);
}

void press(QWidget *widget, QKeyCombination key)
{
    if (!widget)
        return;
    QKeyEvent down(QEvent::KeyPress, key.key(), key.keyboardModifiers());
    QCoreApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key.key(), key.keyboardModifiers());
    QCoreApplication::sendEvent(widget, &up);
}

} // namespace editkeys
