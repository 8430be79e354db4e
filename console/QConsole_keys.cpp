#include "console/QConsole.h"

#include "console/OutputBurst.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

bool isModifierKey(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
    case Qt::Key_Mode_switch:
    case Qt::Key_Multi_key:
        return true;
    default:
        return key >= Qt::Key_Dead_Grave && key <= Qt::Key_Dead_Longsolidusoverlay;
    }
}

} // namespace

// A key that its row ignores is swallowed: it neither edits nor reaches the window.
void QConsole::keyPressEvent(QKeyEvent *event)
{
    if (isModifierKey(event->key()))
        return QTextEdit::keyPressEvent(event);
    if (handleControlKeyPress(event) || handleCopyKeyPress(event))
        return;
    switch (event->key()) {
    case Qt::Key_Tab:
        return handleTabKeyPress();
    case Qt::Key_Backspace:
        return handleBackspaceKeyPress(event);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return handleReturnKeyPress();
    case Qt::Key_Home:
        return handleHomeKeyPress(event);
    case Qt::Key_Up:
        return handleUpKeyPress();
    case Qt::Key_Down:
        return handleDownKeyPress();
    case Qt::Key_End:
    case Qt::Key_Left:
    case Qt::Key_Right:
        return QTextEdit::keyPressEvent(event);
    default:
        return handleOtherKeyPress(event);
    }
}

bool QConsole::handleControlKeyPress(QKeyEvent *event)
{
    if (!textCursor().hasSelection() || event->modifiers() != Qt::ControlModifier)
        return false;
    if (event->matches(QKeySequence::Cut)) {
        event->accept();
        cut();
        return true;
    }
    if (event->matches(QKeySequence::Copy)) {
        event->accept();
        copy();
        return false; // the key's own row follows
    }
    passWithoutEditing(event);
    return true;
}

// Hands a key to the widget so that it cannot change a selection outside the edition zone. Undo and
// redo change what was typed, wherever the selection is.
void QConsole::passWithoutEditing(QKeyEvent *event)
{
    const bool harmless = isSelectionInEditionZone() || event->matches(QKeySequence::Undo)
        || event->matches(QKeySequence::Redo);
    const Qt::TextInteractionFlags flags = textInteractionFlags();
    if (!harmless)
        setTextInteractionFlags(flags & ~Qt::TextEditable);
    QTextEdit::keyPressEvent(event);
    setTextInteractionFlags(flags);
}

bool QConsole::handleCopyKeyPress(QKeyEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier) || event->key() != Qt::Key_C)
        return false;
    if (isSelectionInEditionZone())
        copy();
    else
        QTextEdit::keyPressEvent(event);
    return true;
}

void QConsole::handleBackspaceKeyPress(QKeyEvent *event)
{
    const QTextCursor cursor = textCursor();
    const bool atStart = cursor.position() == promptEnd();
    if (atStart || !isSelectionInEditionZone())
        return;
    if (event->matches(QKeySequence::DeleteStartOfWord) && !cursor.hasSelection())
        deleteStartOfWord();
    else
        QTextEdit::keyPressEvent(event);
}

// The word may begin in the prompt, which must stay.
void QConsole::deleteStartOfWord()
{
    QTextCursor cursor = textCursor();
    const int end = cursor.position();
    cursor.movePosition(QTextCursor::PreviousWord);
    cursor.setPosition(std::max(cursor.position(), promptEnd()));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    setTextCursor(cursor);
}

void QConsole::handleReturnKeyPress()
{
    if (!isSelectionInEditionZone())
        return;
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    const QString command = getCurrentCommand();
    if (isCommandComplete(command)) {
        execCommand(command, false, true, nullptr);
        return;
    }
    moveToEnd();
    textCursor().insertBlock(QTextBlockFormat(), format(cmdColor));
    ensureCursorVisible();
}

void QConsole::handleHomeKeyPress(QKeyEvent *event)
{
    const auto mode =
        event->modifiers() & Qt::ShiftModifier ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor;
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::StartOfBlock, mode);
    if (cursor.blockNumber() == promptParagraph)
        cursor.movePosition(QTextCursor::Right, mode, promptColumn);
    setTextCursor(cursor);
    handleDownKeyPress(); // on purpose: Home goes on as Down
}

void QConsole::handleUpKeyPress()
{
    if (!isInEditionZone() || history.isEmpty())
        return;
    const QString current = getCurrentCommand();
    while (historyIndex > 0) {
        if (history.at(--historyIndex) != current)
            break;
    }
    replaceCurrentCommand(history.at(historyIndex));
}

void QConsole::handleDownKeyPress()
{
    if (!isInEditionZone() || history.isEmpty())
        return;
    const QString current = getCurrentCommand();
    const int newest = int(history.size()) - 1;
    do {
        ++historyIndex;
    } while (historyIndex <= newest && history.at(historyIndex) == current);
    historyIndex = std::min(historyIndex, newest);
    replaceCurrentCommand(history.at(historyIndex));
}

// Typing anywhere else types at the end.
void QConsole::handleOtherKeyPress(QKeyEvent *event)
{
    if (!isSelectionInEditionZone())
        moveToEnd();
    QTextEdit::keyPressEvent(event);
}

void QConsole::inputMethodEvent(QInputMethodEvent *event)
{
    const bool types = !event->commitString().isEmpty() || !event->preeditString().isEmpty()
        || event->replacementLength() > 0;
    if (types && !isSelectionInEditionZone())
        moveToEnd();
    QTextEdit::inputMethodEvent(event);
}

bool QConsole::event(QEvent *event)
{
    burst->close();
    return QTextEdit::event(event);
}

bool QConsole::viewportEvent(QEvent *event)
{
    burst->close();
    return QTextEdit::viewportEvent(event);
}
