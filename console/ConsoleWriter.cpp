#include "console/ConsoleWriter.h"

#include "console/EditionZone.h"

#include <QTextBlock>
#include <QTextEdit>

void ConsoleWriter::startWith(const QFont &font)
{
    plain = QTextCharFormat();
    plain.setFont(font);
}

void ConsoleWriter::setFont(const QFont &font)
{
    burst.close();
    QTextDocument *const document = view->document();
    const bool undoWasOn = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);
    plain.setFont(font);
    const QTextCursor kept = view->textCursor();
    QTextCursor all(document);
    all.select(QTextCursor::Document);
    all.mergeBlockCharFormat(plain);
    all.mergeCharFormat(plain);
    view->setTextCursor(kept);
    view->setCurrentFont(font);
    document->setUndoRedoEnabled(undoWasOn);
}

QTextCharFormat ConsoleWriter::format(const QColor &color) const
{
    QTextCharFormat colored = plain;
    colored.setForeground(color);
    return colored;
}

// Only an empty document takes its first paragraph without a break.
void ConsoleWriter::appendParagraph(const QString &text, const QTextCharFormat &characters)
{
    QTextDocument *const document = view->document();
    QTextCursor &cursor = burst.open();
    cursor.setPosition(document->characterCount() - 1);
    if (document->isEmpty())
        cursor.setBlockCharFormat(characters);
    else
        cursor.insertBlock(QTextBlockFormat(), characters);
    cursor.insertText(text, characters);
    zone->outputEndsAt(cursor);
}

// Opens the burst too.
void ConsoleWriter::insertBeforePrompt(const QString &text, const QTextCharFormat &characters)
{
    QTextCursor &cursor = burst.open();
    cursor.setPosition(view->document()->findBlockByNumber(zone->promptParagraph).position());
    const QTextCharFormat own = cursor.blockCharFormat();
    cursor.insertText(text, characters);
    cursor.insertBlock(QTextBlockFormat(), own);
    zone->promptParagraph = cursor.blockNumber();
}

void ConsoleWriter::writeOutput(const QString &text, const QColor &color)
{
    if (promptWaits)
        insertBeforePrompt(text, format(color));
    else
        appendParagraph(text, format(color));
    burst.written();
}

void ConsoleWriter::showResult(const QString &text, const QColor &color, const QColor &commandColor)
{
    promptWaits = false;
    if (!text.isEmpty())
        appendParagraph(text.endsWith(u'\n') ? text.chopped(1) : text, format(color));
    appendParagraph(QString(), format(commandColor));
    burst.close();
    const ScrollPlace place(view);
    moveToEnd();
    place.restore();
}

void ConsoleWriter::showPrompt(const QString &prompt, const QColor &color)
{
    burst.close();
    const ScrollPlace place(view);
    QTextDocument *const document = view->document();
    document->setUndoRedoEnabled(false);
    const QTextCharFormat own = format(color);
    QTextCursor end(document);
    end.movePosition(QTextCursor::End);
    if (end.atBlockStart())
        end.setBlockCharFormat(own);
    end.insertText(prompt, own);
    view->setTextCursor(end);
    view->setTextColor(color);
    zone->beginAt(end);
    promptWaits = true;
    document->setUndoRedoEnabled(true);
    place.restore();
}

void ConsoleWriter::echo(const QString &command, const QColor &color,
                         const std::function<void()> &beginLine)
{
    burst.close();
    const ScrollPlace place(view);
    moveToEnd();
    if (zone->endsWithOutput() || !zone->command().isEmpty()) {
        view->textCursor().insertBlock(QTextBlockFormat(), format(color));
        beginLine();
    }
    view->textCursor().insertText(command, format(color));
    place.restore();
}

void ConsoleWriter::continueCommand(const QColor &color)
{
    moveToEnd();
    view->textCursor().insertBlock(QTextBlockFormat(), format(color));
    view->ensureCursorVisible();
}

void ConsoleWriter::moveToEnd()
{
    burst.close();
    QTextCursor end(view->document());
    end.movePosition(QTextCursor::End);
    view->setTextCursor(end);
}
