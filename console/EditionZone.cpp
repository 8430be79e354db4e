#include "console/EditionZone.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>

#include <algorithm>

void EditionZone::reset()
{
    promptParagraph = 0;
    promptColumn = 0;
}

void EditionZone::beginAt(const QTextCursor &promptEnd)
{
    promptParagraph = promptEnd.blockNumber();
    promptColumn = promptEnd.positionInBlock();
    outputEnd = QTextCursor();
}

void EditionZone::outputEndsAt(const QTextCursor &end)
{
    outputEnd = end;
    outputEnd.setKeepPositionOnInsert(true);
}

bool EditionZone::contains(const QTextCursor &cursor) const
{
    return cursor.blockNumber() > promptParagraph
        || (cursor.blockNumber() == promptParagraph && cursor.positionInBlock() >= promptColumn);
}

bool EditionZone::contains(int position) const
{
    QTextCursor cursor(view->document());
    cursor.setPosition(position);
    return contains(cursor);
}

bool EditionZone::containsCursor() const { return contains(view->textCursor()); }

bool EditionZone::containsSelection() const
{
    const QTextCursor cursor = view->textCursor();
    return contains(cursor.selectionStart()) && contains(cursor.selectionEnd());
}

int EditionZone::begin() const
{
    return view->document()->findBlockByNumber(promptParagraph).position() + promptColumn;
}

QTextCursor EditionZone::commandSelection() const
{
    QTextCursor command = view->textCursor();
    if (contains(command)) {
        command.setPosition(outputEnd.isNull() ? begin() : outputEnd.position());
        command.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    } else {
        const QTextBlock line = command.block();
        command.setPosition(line.position() + std::min(promptColumn, line.length() - 1));
        command.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    }
    return command;
}

QString EditionZone::command() const
{
    return commandSelection().selectedText().replace(QChar::ParagraphSeparator, u'\n');
}

void EditionZone::deleteStartOfWord()
{
    QTextCursor cursor = view->textCursor();
    const int end = cursor.position();
    cursor.movePosition(QTextCursor::PreviousWord);
    cursor.setPosition(std::max(cursor.position(), begin()));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    view->setTextCursor(cursor);
}

void EditionZone::moveHome(QTextCursor::MoveMode mode)
{
    QTextCursor cursor = view->textCursor();
    cursor.movePosition(QTextCursor::StartOfBlock, mode);
    if (cursor.blockNumber() == promptParagraph)
        cursor.movePosition(QTextCursor::Right, mode, promptColumn);
    view->setTextCursor(cursor);
}
