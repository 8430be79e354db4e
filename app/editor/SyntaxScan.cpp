#include "app/editor/SyntaxScan.h"

namespace {

// Open spans are kept in one number, six bits for each.
constexpr int bits = 6;
constexpr int mask = (1 << bits) - 1;

} // namespace

SyntaxScan::SyntaxScan(const Syntax &theSyntax, QStringView theLine, int state)
    : syntax(theSyntax),
      line(theLine)
{
    for (int rest = qMax(state, 0); rest > 0; rest >>= bits)
        open.append((rest & mask) - 1);
    scan();
}

int SyntaxScan::state() const
{
    int state = 0;
    for (auto index = open.crbegin(); index != open.crend(); ++index)
        state = (state << bits) | (*index + 1);
    return state;
}

void SyntaxScan::scan()
{
    while (at < line.size()) {
        const bool taken = takeEscape() || takeClosing() || takeOpening() || takePrefix()
            || takeNumber() || takeWord();
        if (!taken)
            ++at;
    }
    endLine();
}

bool SyntaxScan::takeEscape()
{
    const bool escapes = span() && !span()->escape.isNull() && line[at] == span()->escape;
    if (!escapes)
        return false;
    escapesEnd = at + 1 == line.size();
    at = qMin(at + 2, line.size());
    return true;
}

bool SyntaxScan::takeClosing()
{
    if (!span() || span()->closing.isEmpty() || !isHere(span()->closing))
        return false;
    at += span()->closing.size();
    flush();
    open.removeLast();
    return true;
}

bool SyntaxScan::takeOpening()
{
    const int within = open.isEmpty() ? -1 : open.last();
    for (int index = 0; index < syntax.spans.size(); ++index) {
        const Syntax::Span &candidate = syntax.spans[index];
        if (candidate.within != within || candidate.opening.front() != line[at]
            || !isHere(candidate.opening) || !mayBegin(candidate))
            continue;
        flush();
        open.append(index);
        at += candidate.opening.size();
        return true;
    }
    return false;
}

bool SyntaxScan::takePrefix()
{
    if (span() && !span()->hasPrefixes)
        return false;
    for (const Syntax::Prefix &prefix : syntax.prefixes) {
        const qsizetype end = wordEnd(at + 1);
        if (line[at] != prefix.character || end == at + 1)
            continue;
        flush();
        add(at, end, prefix.style);
        at = begin = end;
        return true;
    }
    return false;
}

bool SyntaxScan::takeNumber()
{
    if (span() || !line[at].isDigit())
        return false;
    const qsizetype start = at;
    while (at < line.size()
           && (line[at].isLetterOrNumber() || line[at] == u'_'
               || syntax.numberCharacters.contains(line[at])))
        ++at;
    add(start, at, Syntax::Number);
    return true;
}

bool SyntaxScan::takeWord()
{
    if (span() || !isWordCharacter(line[at]))
        return false;
    const qsizetype start = at;
    at = wordEnd(at);
    const QString word = line.sliced(start, at - start).toString();
    if (syntax.keywords.contains(syntax.keywordsHaveCase ? word : word.toLower()))
        add(start, at, Syntax::Keyword);
    return true;
}

// What does not go on in the next line is closed.
void SyntaxScan::endLine()
{
    flush();
    const int innermost = open.isEmpty() || !escapesEnd ? -1 : open.last();
    open.removeIf([this, innermost](int index) {
        return !syntax.spans[index].overLines && index != innermost;
    });
}

bool SyntaxScan::mayBegin(const Syntax::Span &candidate) const
{
    const QString &behind = candidate.behind;
    if (behind.isEmpty())
        return true;
    qsizetype before = at - 1;
    if (!behind.contains(u' ')) {
        while (before >= 0 && line[before].isSpace())
            --before;
    }
    return behind.contains(before < 0 ? QChar(u'\n') : line[before]);
}

bool SyntaxScan::isWordCharacter(QChar character) const
{
    return character.isLetterOrNumber() || character == u'_'
        || syntax.wordCharacters.contains(character);
}

qsizetype SyntaxScan::wordEnd(qsizetype from) const
{
    while (from < line.size() && isWordCharacter(line[from]))
        ++from;
    return from;
}

const Syntax::Span *SyntaxScan::span() const
{
    return open.isEmpty() ? nullptr : &syntax.spans[open.last()];
}

void SyntaxScan::flush()
{
    if (span())
        add(begin, at, span()->style);
    begin = at;
}

void SyntaxScan::add(qsizetype start, qsizetype end, Syntax::Style style)
{
    if (end > start)
        found.append({int(start), int(end - start), style});
}
