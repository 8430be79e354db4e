#include "app/editor/TextSearch.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

TextSearch::Match at(const QTextBlock &block, const QRegularExpressionMatch &found)
{
    return {block.position() + int(found.capturedStart()), int(found.capturedLength())};
}

} // namespace

TextSearch::TextSearch(const QString &pattern, Options options)
    : isExpression(options.regularExpression)
{
    QString text = isExpression ? pattern : QRegularExpression::escape(pattern);
    // Not by the borders of words, since what is searched for may begin with something else.
    if (options.wholeWords)
        text = u"(?<!\\w)(?:"_s + text + u")(?!\\w)"_s;
    QRegularExpression::PatternOptions flags = QRegularExpression::UseUnicodePropertiesOption;
    if (!options.matchCase)
        flags |= QRegularExpression::CaseInsensitiveOption;
    expression = QRegularExpression(text, flags);
    empty = pattern.isEmpty() || !expression.isValid();
    if (!empty)
        expression.optimize();
}

QString TextSearch::error() const
{
    return expression.isValid() ? QString() : expression.errorString();
}

std::optional<TextSearch::Match> TextSearch::next(const QTextDocument &document, int position,
                                                  bool *wrapped) const
{
    *wrapped = false;
    if (empty)
        return std::nullopt;
    QTextBlock block = document.findBlock(position);
    qsizetype offset = block.isValid() ? position - block.position() : 0;
    // The block of the start is searched a second time, from its beginning.
    for (int blocks = document.blockCount(); blocks >= 0; --blocks) {
        if (!block.isValid()) {
            block = document.firstBlock();
            *wrapped = true;
        }
        const QRegularExpressionMatch found = expression.match(block.text(), offset);
        if (found.hasMatch())
            return at(block, found);
        block = block.next();
        offset = 0;
    }
    return std::nullopt;
}

std::optional<TextSearch::Match> TextSearch::previous(const QTextDocument &document, int position,
                                                      bool *wrapped) const
{
    *wrapped = false;
    if (empty)
        return std::nullopt;
    QTextBlock block = document.findBlock(position);
    int before = position;
    for (int blocks = document.blockCount(); blocks >= 0; --blocks) {
        if (!block.isValid()) {
            block = document.lastBlock();
            *wrapped = true;
        }
        const QList<Match> matches = inBlock(block);
        for (auto match = matches.crbegin(); match != matches.crend(); ++match) {
            if (match->position < before)
                return *match;
        }
        block = block.previous();
        before = std::numeric_limits<int>::max();
    }
    return std::nullopt;
}

QList<TextSearch::Match> TextSearch::all(const QTextDocument &document, qsizetype limit) const
{
    QList<Match> matches;
    QTextBlock block = document.firstBlock();
    for (; !empty && block.isValid() && matches.size() < limit; block = block.next())
        matches += inBlock(block);
    if (matches.size() > limit)
        matches.resize(limit);
    return matches;
}

QList<TextSearch::Match> TextSearch::inBlock(const QTextBlock &block) const
{
    QList<Match> matches;
    if (empty)
        return matches;
    const QString text = block.text();
    for (const QRegularExpressionMatch &found : expression.globalMatch(text))
        matches.append(at(block, found));
    return matches;
}

QString TextSearch::replacement(const QTextDocument &document, Match match,
                                const QString &substitute) const
{
    const QTextBlock block = document.findBlock(match.position);
    return expand(expression.match(block.text(), match.position - block.position()), substitute);
}

int TextSearch::replaceAll(QTextDocument *document, const QString &substitute) const
{
    int replaced = 0;
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    // From the end, so that what is found stays where it was found.
    for (QTextBlock block = document->lastBlock(); !empty && block.isValid();) {
        const QTextBlock before = block.previous();
        const QString text = block.text();
        QList<QRegularExpressionMatch> matches;
        for (const QRegularExpressionMatch &found : expression.globalMatch(text))
            matches.prepend(found);
        const int start = block.position();
        for (const QRegularExpressionMatch &found : std::as_const(matches)) {
            cursor.setPosition(start + int(found.capturedStart()));
            cursor.setPosition(start + int(found.capturedEnd()), QTextCursor::KeepAnchor);
            cursor.insertText(expand(found, substitute));
        }
        replaced += int(matches.size());
        block = before;
    }
    cursor.endEditBlock();
    return replaced;
}

QString TextSearch::expand(const QRegularExpressionMatch &found, const QString &substitute) const
{
    if (!isExpression || !substitute.contains(u'\\'))
        return substitute;
    QString text;
    for (qsizetype index = 0; index < substitute.size(); ++index) {
        const QChar character = substitute[index];
        if (character != u'\\' || index + 1 == substitute.size()) {
            text += character;
            continue;
        }
        const QChar escaped = substitute[++index];
        if (escaped.unicode() >= u'0' && escaped.unicode() <= u'9')
            text += found.captured(escaped.unicode() - u'0');
        else if (escaped == u'n')
            text += u'\n';
        else if (escaped == u't')
            text += u'\t';
        else
            text += escaped == u'\\' ? u"\\"_s : QString(character) + escaped;
    }
    return text;
}
