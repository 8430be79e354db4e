#include "console/QConsole.h"

#include "console/OutputBurst.h"

#include <QTextBlock>

QTextCharFormat QConsole::format(const QColor &color) const
{
    QTextCharFormat colored = textFormat;
    colored.setForeground(color);
    return colored;
}

void QConsole::writeOutput(const QString &text, const QColor &color)
{
    if (promptWaits)
        insertBeforePrompt(text, format(color));
    else
        appendParagraph(text, format(color));
    burst->written();
}

// Opens the burst, and leaves it to the caller to close it. Only an empty document takes its first
// paragraph without a break.
void QConsole::appendParagraph(const QString &text, const QTextCharFormat &characters)
{
    QTextCursor &cursor = burst->open();
    cursor.setPosition(document()->characterCount() - 1);
    if (document()->isEmpty())
        cursor.setBlockCharFormat(characters);
    else
        cursor.insertBlock(QTextBlockFormat(), characters);
    cursor.insertText(text, characters);
    outputEnd = cursor;
    outputEnd.setKeepPositionOnInsert(true);
}

// Opens the burst too.
void QConsole::insertBeforePrompt(const QString &text, const QTextCharFormat &characters)
{
    QTextCursor &cursor = burst->open();
    cursor.setPosition(document()->findBlockByNumber(promptParagraph).position());
    const QTextCharFormat own = cursor.blockCharFormat();
    cursor.insertText(text, characters);
    cursor.insertBlock(QTextBlockFormat(), own);
    promptParagraph = cursor.blockNumber();
}

// The paragraph behind a result is the next command's, so it gets the command's format.
void QConsole::showResult(const QString &text, const QColor &color)
{
    promptWaits = false;
    if (!text.isEmpty())
        appendParagraph(text.endsWith(u'\n') ? text.chopped(1) : text, format(color));
    appendParagraph(QString(), format(cmdColor));
    burst->close();
    const ScrollPlace place(this);
    moveToEnd();
    place.restore();
}

void QConsole::moveToEnd()
{
    burst->close();
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    setTextCursor(end);
}

// Shows a command at the end of the document as if it had been typed, in a fresh line unless the
// last one is free for it.
void QConsole::echo(const QString &command)
{
    burst->close();
    const ScrollPlace place(this);
    moveToEnd();
    const bool behindOutput = !outputEnd.isNull() && !outputEnd.atBlockStart();
    if (behindOutput || !getCurrentCommand().isEmpty()) {
        textCursor().insertBlock(QTextBlockFormat(), format(cmdColor));
        displayPrompt();
    }
    textCursor().insertText(command, format(cmdColor));
    place.restore();
}
