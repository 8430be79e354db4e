#include "console/TextFind.h"

#include "console/QConsole.h"

#include <QKeyEvent>

TextFind::TextFind(QConsole *owner) : SearchStrip(owner, tr("Find:"))
{
    const QString selected = owner->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        setPattern(selected);
}

void TextFind::search()
{
    QTextCursor end(console->document());
    end.movePosition(QTextCursor::End);
    find(end, QTextDocument::FindBackward);
}

void TextFind::find(const QTextCursor &from, QTextDocument::FindFlags direction)
{
    setNote(QString());
    if (pattern().isEmpty())
        return;
    const QTextCursor match = console->document()->find(pattern(), from, direction);
    if (match.isNull())
        return setNote(tr("not found"));
    console->setTextCursor(match);
    console->ensureCursorVisible();
}

bool TextFind::pressed(const QKeyEvent &event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isFind = event.key() == Qt::Key_F && event.modifiers() == Qt::ControlModifier;
    if (!isReturn && !isFind)
        return false;
    const bool down = isReturn && event.modifiers() & Qt::ShiftModifier;
    find(console->textCursor(), down ? QTextDocument::FindFlags() : QTextDocument::FindBackward);
    return true;
}
