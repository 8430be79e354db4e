#include "tests/process/Screen.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

Screen::Screen(int rowCount, int columns) : columnCount(columns), height(rowCount)
{
    rows.append(QList<char32_t>(columns, U' '));
}

void Screen::feed(const QByteArray &bytes)
{
    for (const char byte : bytes) {
        partial.append(byte);
        const auto lead = static_cast<unsigned char>(partial.front());
        const int length = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
        if (partial.size() < length)
            continue;
        for (const uint c : QString::fromUtf8(partial).toUcs4())
            take(c);
        partial.clear();
    }
}

void Screen::resize(int columns)
{
    columnCount = columns;
    for (QList<char32_t> &row : rows) {
        while (row.size() < columns)
            row.append(U' ');
        row.resize(columns);
    }
    cursorColumn = std::min(cursorColumn, columns - 1);
}

QString Screen::text() const
{
    QStringList lines;
    for (const QList<char32_t> &row : rows) {
        QString line = QString::fromUcs4(row.constData(), row.size());
        while (line.endsWith(u' '))
            line.chop(1);
        lines.append(line);
    }
    while (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines.join(u'\n');
}

void Screen::take(char32_t c)
{
    if (c == 0x1b) {
        escape = u"\x1b"_s;
    } else if (escape.isEmpty()) {
        if (c < U' ')
            control(c);
        else
            put(c);
    } else {
        escape += QChar(char16_t(c));
        // "[", then parameters, then a letter; or two characters.
        const bool isOpen = escape.size() == 2 ? c == U'[' || c == U'(' || c == U'#'
                                               : escape[1] == u'[' && (c < 0x40);
        if (!isOpen) {
            sequence(c);
            escape.clear();
        }
    }
}

void Screen::control(char32_t c)
{
    wrapsNext = false;
    if (c == U'\r')
        cursorColumn = 0;
    else if (c == U'\n')
        lineFeed();
    else if (c == U'\b')
        cursorColumn = std::max(0, cursorColumn - 1);
    else if (c == U'\t')
        cursorColumn = std::min(columnCount - 1, (cursorColumn / 8 + 1) * 8);
}

void Screen::put(char32_t c)
{
    if (wrapsNext) {
        cursorColumn = 0;
        lineFeed();
    }
    QList<char32_t> &row = rows[cursorRow];
    if (inserts) {
        row.insert(cursorColumn, c);
        row.removeLast();
    } else {
        row[cursorColumn] = c;
    }
    wrapsNext = cursorColumn == columnCount - 1;
    cursorColumn = std::min(cursorColumn + 1, columnCount - 1);
}

void Screen::lineFeed()
{
    if (++cursorRow == rows.size())
        rows.append(QList<char32_t>(columnCount, U' '));
}

int Screen::parameter(int fallback) const
{
    bool isNumber = false;
    const int number = escape.mid(2).chopped(1).section(u';', 0, 0).toInt(&isNumber);
    return isNumber ? number : fallback;
}

void Screen::sequence(char32_t final)
{
    if (escape[1] != u'[' || escape.contains(u'?'))
        return;
    wrapsNext = false;
    move(final, parameter(1));
    edit(final, parameter(1));
    if (final == U'h' || final == U'l')
        inserts = parameter(0) == 4 ? final == U'h' : inserts;
}

void Screen::move(char32_t final, int count)
{
    switch (final) {
    case U'A': {
        const int top = std::max<int>(0, int(rows.size()) - height);
        cursorRow = std::max(top, cursorRow - count);
        break;
    }
    case U'B':
        cursorRow = std::min(int(rows.size()) - 1, cursorRow + count);
        break;
    case U'C':
        cursorColumn = std::min(columnCount - 1, cursorColumn + count);
        break;
    case U'D':
        cursorColumn = std::max(0, cursorColumn - count);
        break;
    case U'G':
        cursorColumn = std::clamp(count - 1, 0, columnCount - 1);
        break;
    default:
        break;
    }
}

void Screen::edit(char32_t final, int count)
{
    QList<char32_t> &row = rows[cursorRow];
    switch (final) {
    case U'J':
        rows.resize(cursorRow + 1);
        [[fallthrough]];
    case U'K':
        std::fill(rows[cursorRow].begin() + cursorColumn, rows[cursorRow].end(), U' ');
        break;
    case U'P':
        row.remove(cursorColumn, std::min<int>(count, columnCount - cursorColumn));
        row.resize(columnCount, U' ');
        break;
    case U'@':
        row.insert(cursorColumn, count, U' ');
        row.resize(columnCount);
        break;
    default:
        break;
    }
}
