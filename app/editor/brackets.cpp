#include "app/editor/brackets.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

using namespace Qt::Literals::StringLiterals;

namespace brackets {

namespace {

constexpr int farthest = 200'000; // characters

const QString openings = u"([{"_s;
const QString closings = u")]}"_s;

// What the text around a place is coloured as.
QBrush colourAt(const QTextBlock &block, int column)
{
    for (const QTextLayout::FormatRange &range : block.layout()->formats()) {
        if (column >= range.start && column < range.start + range.length)
            return range.format.foreground();
    }
    return {};
}

struct Search
{
    QChar opening;
    QChar closing;
    QBrush colour;
    int step; // 1 towards the end, -1 towards the start
};

// The column of the other bracket in a line, from a column on; -1 when it is not there. The depth
// is how many brackets are open so far.
int columnInLine(const QTextBlock &block, int column, const Search &search, int *depth)
{
    const QString text = block.text();
    for (; column >= 0 && column < text.size(); column += search.step) {
        const QChar character = text[column];
        const bool opens = character == (search.step > 0 ? search.opening : search.closing);
        const bool closes = character == (search.step > 0 ? search.closing : search.opening);
        if ((!opens && !closes) || colourAt(block, column) != search.colour)
            continue;
        *depth += opens ? 1 : -1;
        if (*depth == 0)
            return column;
    }
    return -1;
}

std::optional<Pair> pairOf(const QTextDocument &document, int place)
{
    const QChar character = document.characterAt(place);
    const bool isOpening = openings.contains(character);
    const qsizetype kind = (isOpening ? openings : closings).indexOf(character);
    QTextBlock block = document.findBlock(place);
    int column = place - block.position();
    const Search search {openings[kind], closings[kind], colourAt(block, column),
                         isOpening ? 1 : -1};
    int depth = 0;
    while (block.isValid()) {
        const int found = columnInLine(block, column, search, &depth);
        if (found >= 0)
            return Pair {place, block.position() + found};
        block = isOpening ? block.next() : block.previous();
        column = isOpening ? 0 : block.length() - 2;
        if (block.isValid() && qAbs(block.position() - place) > farthest)
            return std::nullopt;
    }
    return Pair {place, -1};
}

} // namespace

std::optional<Pair> at(const QTextCursor &cursor)
{
    const QTextDocument *document = cursor.document();
    for (const int place : {cursor.position() - 1, cursor.position()}) {
        const QChar character = place < 0 ? QChar() : document->characterAt(place);
        if (openings.contains(character) || closings.contains(character))
            return pairOf(*document, place);
    }
    return std::nullopt;
}

} // namespace brackets
