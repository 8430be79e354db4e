#include "app/editor/lineediting.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace lineediting {

namespace {

QList<QTextBlock> linesOf(const QTextCursor &cursor)
{
    const QTextDocument *document = cursor.document();
    QTextBlock block = document->findBlock(cursor.selectionStart());
    QTextBlock last = document->findBlock(cursor.selectionEnd());
    if (last != block && cursor.selectionEnd() == last.position())
        last = last.previous();
    QList<QTextBlock> lines {block};
    while (block != last) {
        block = block.next();
        lines.append(block);
    }
    return lines;
}

qsizetype indentOf(const QString &line)
{
    const auto end = std::find_if(line.begin(), line.end(), [](QChar character) {
        return character != u' ' && character != u'\t';
    });
    return end - line.begin();
}

bool isEmpty(const QTextBlock &line) { return line.text().trimmed().isEmpty(); }

void insert(const QTextBlock &line, qsizetype column, const QString &text)
{
    QTextCursor cursor(line);
    cursor.setPosition(line.position() + int(column));
    cursor.insertText(text);
}

void remove(const QTextBlock &line, qsizetype column, qsizetype length)
{
    QTextCursor cursor(line);
    cursor.setPosition(line.position() + int(column));
    cursor.setPosition(line.position() + int(column + length), QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

// A selection goes on to have whole lines.
template <typename Change>
void changeLines(QTextCursor *cursor, const Change &change)
{
    const QList<QTextBlock> lines = linesOf(*cursor);
    const bool hadSelection = cursor->hasSelection();
    cursor->beginEditBlock();
    for (const QTextBlock &line : lines) {
        if (!isEmpty(line))
            change(line);
    }
    cursor->endEditBlock();
    if (!hadSelection)
        return;
    const QTextBlock last = lines.last();
    cursor->setPosition(lines.first().position());
    cursor->setPosition(last.next().isValid() ? last.next().position()
                                              : last.position() + last.length() - 1,
                        QTextCursor::KeepAnchor);
}

} // namespace

void indent(QTextCursor *cursor, const Indentation &by)
{
    changeLines(cursor, [&by](const QTextBlock &line) { insert(line, 0, by.step()); });
}

void outdent(QTextCursor *cursor, const Indentation &by)
{
    changeLines(cursor, [&by](const QTextBlock &line) {
        const QString text = line.text();
        const qsizetype blanks = std::min<qsizetype>(indentOf(text), by.width);
        const qsizetype tab = text.first(blanks).indexOf(u'\t');
        remove(line, 0, tab >= 0 ? tab + 1 : blanks);
    });
}

QString toNextStep(const QTextCursor &cursor, const Indentation &by)
{
    if (!by.hasSpaces)
        return by.step();
    int column = 0;
    for (const QChar character : cursor.block().text().first(cursor.positionInBlock()))
        column += character == u'\t' ? by.width - column % by.width : 1;
    return QString(by.width - column % by.width, u' ');
}

void toggleComment(QTextCursor *cursor, const QString &sign)
{
    qsizetype column = -1;
    bool areComments = true;
    for (const QTextBlock &line : linesOf(*cursor)) {
        if (isEmpty(line))
            continue;
        const qsizetype indent = indentOf(line.text());
        column = column < 0 ? indent : std::min(column, indent);
        areComments = areComments && line.text().sliced(indent).startsWith(sign);
    }
    if (column < 0)
        return;
    changeLines(cursor, [&](const QTextBlock &line) {
        if (!areComments)
            return insert(line, column, sign + u' ');
        const QString text = line.text();
        const qsizetype start = indentOf(text);
        const bool hasBlank =
            text.size() > start + sign.size() && text[start + sign.size()] == u' ';
        remove(line, start, sign.size() + (hasBlank ? 1 : 0));
    });
}

} // namespace lineediting
