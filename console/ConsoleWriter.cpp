#include "console/ConsoleWriter.h"

#include "console/EditionZone.h"
#include "console/LazyTextLayout.h"
#include "console/TextPlace.h"

#include <QTextBlock>
#include <QTextEdit>

#include <algorithm>

ConsoleWriter::ConsoleWriter(QTextEdit *widget, EditionZone *editionZone)
    : view(widget),
      zone(editionZone),
      layout(new LazyTextLayout(widget->document())),
      burst(widget),
      fontChange(widget->document())
{
    view->document()->setDocumentLayout(layout);
}

void ConsoleWriter::startWith(const QFont &font)
{
    plain = QTextCharFormat();
    plain.setFont(font);
    layout->setFont(font);
}

void ConsoleWriter::setFont(const QFont &font)
{
    burst.close();
    QTextDocument *const document = view->document();
    const bool undoWasOn = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);
    plain.setFont(font);
    const TextPlace place(view);
    layout->setFont(font);
    fontChange.start(plain);
    view->setCurrentFont(font);
    document->setUndoRedoEnabled(undoWasOn);
    place.restore();
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

// In front of a prompt, the paragraph's break has been written too.
QTextCursor ConsoleWriter::outputTail()
{
    QTextCursor tail = burst.open();
    if (promptWaits)
        tail.movePosition(QTextCursor::PreviousCharacter);
    tail.setKeepPositionOnInsert(true);
    return tail;
}

// A text that was cleared has taken the paragraph away.
void ConsoleWriter::continueOutput(QTextCursor &tail, const QString &text, const QColor &color)
{
    if (promptWaits && tail.blockNumber() >= zone->promptParagraph) {
        writeOutput(text, color);
        tail = outputTail();
        return;
    }
    burst.open();
    tail.setKeepPositionOnInsert(false);
    tail.setPosition(tail.position()); // its anchor has not stayed
    tail.insertText(text, format(color));
    tail.setKeepPositionOnInsert(true);
    if (tail.atEnd())
        zone->outputEndsAt(tail);
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

void ConsoleWriter::clearBeforePrompt(const QColor &color)
{
    burst.close();
    if (!promptWaits)
        return;
    const QTextBlock line = view->document()->findBlockByNumber(zone->promptParagraph);
    const QString prompt = line.text().first(zone->begin() - line.position());
    const int cursor = view->textCursor().position() - zone->begin();
    QTextCursor typed(view->document());
    typed.setPosition(zone->begin());
    typed.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    const QString text = typed.selectedText().replace(QChar::ParagraphSeparator, u'\n');
    view->clear();
    showPrompt(prompt, color);
    QTextCursor again = view->textCursor();
    again.insertText(text, format(color));
    again.setPosition(zone->begin() + std::max(cursor, 0));
    view->setTextCursor(again);
}

void ConsoleWriter::moveToEnd()
{
    burst.close();
    QTextCursor end(view->document());
    end.movePosition(QTextCursor::End);
    view->setTextCursor(end);
}
