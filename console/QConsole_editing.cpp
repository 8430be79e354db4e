#include "console/QConsole.h"

#include "console/OutputBurst.h"

#include <QMimeData>
#include <QTextBlock>

bool QConsole::isInEditionZone(const QTextCursor &cursor) const
{
    return cursor.blockNumber() > promptParagraph
        || (cursor.blockNumber() == promptParagraph && cursor.positionInBlock() >= promptColumn);
}

bool QConsole::isInEditionZone() const { return isInEditionZone(textCursor()); }

bool QConsole::isInEditionZone(const int &position) const
{
    QTextCursor cursor(document());
    cursor.setPosition(position);
    return isInEditionZone(cursor);
}

bool QConsole::isSelectionInEditionZone() const
{
    const QTextCursor cursor = textCursor();
    return isInEditionZone(cursor.selectionStart()) && isInEditionZone(cursor.selectionEnd());
}

int QConsole::promptEnd() const
{
    return document()->findBlockByNumber(promptParagraph).position() + promptColumn;
}

// In the edition zone, all that has been typed; elsewhere the cursor's line without its prompt.
QTextCursor QConsole::commandSelection() const
{
    QTextCursor command = textCursor();
    if (isInEditionZone()) {
        command.setPosition(outputEnd.isNull() ? promptEnd() : outputEnd.position());
        command.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    } else {
        const QTextBlock line = command.block();
        command.setPosition(line.position() + qMin(promptColumn, line.length() - 1));
        command.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    }
    return command;
}

QString QConsole::getCurrentCommand() const
{
    return commandSelection().selectedText().replace(QChar::ParagraphSeparator, u'\n');
}

void QConsole::replaceCurrentCommand(const QString &newCommand)
{
    burst->close();
    QTextCursor command = commandSelection();
    command.insertText(newCommand, format(cmdColor));
    setTextCursor(command);
}

void QConsole::cut()
{
    burst->close();
    if (isSelectionInEditionZone())
        QTextEdit::cut();
    else
        copy();
}

void QConsole::del()
{
    burst->close();
    if (isSelectionInEditionZone())
        textCursor().deleteChar();
}

void QConsole::insertFromMimeData(const QMimeData *source)
{
    burst->close();
    if (isSelectionInEditionZone())
        QTextEdit::insertFromMimeData(source);
}
