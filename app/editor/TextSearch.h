#pragma once

#include <QList>
#include <QRegularExpression>

#include <optional>

class QTextBlock;
class QTextDocument;

// A search through the lines of a document. A match lies within one line; an empty one, such as
// the start of a line, is a match too.
class TextSearch
{
public:
    struct Options
    {
        bool matchCase = false;
        bool wholeWords = false;
        bool regularExpression = false;

        bool operator==(const Options &) const = default;
    };

    struct Match
    {
        int position = 0;
        int length = 0;

        bool operator==(const Match &) const = default;
    };

    TextSearch() = default;
    TextSearch(const QString &pattern, Options options);

    // Nothing is searched for, or the pattern is wrong; then nothing is found.
    bool isEmpty() const { return empty; }
    // What is wrong with the pattern; empty when nothing is.
    QString error() const;

    // The first match that begins at the position or behind it, and the last one before it; round
    // the end of the document, if there is none, with *wrapped set. Nothing when there is none.
    std::optional<Match> next(const QTextDocument &document, int position, bool *wrapped) const;
    std::optional<Match> previous(const QTextDocument &document, int position, bool *wrapped) const;

    // All matches in order, or as many as the limit allows.
    QList<Match> all(const QTextDocument &document, qsizetype limit) const;
    QList<Match> inBlock(const QTextBlock &block) const;

    // What takes the place of a match. In the substitute for a regular expression "\1" is what its
    // first group matched, up to "\9", "\0" the whole match, "\n" a new line, "\t" a tab and
    // "\\" a backslash.
    QString replacement(const QTextDocument &document, Match match,
                        const QString &substitute) const;

    // Replaces all matches as one step that can be undone; returns how many there were.
    int replaceAll(QTextDocument *document, const QString &substitute) const;

private:
    QString expand(const QRegularExpressionMatch &found, const QString &substitute) const;

    QRegularExpression expression;
    bool isExpression = false;
    bool empty = true;
};
