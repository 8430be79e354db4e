#pragma once

#include "app/editor/Syntax.h"

// Walks through one line of a text and finds the pieces that have a style.
class SyntaxScan
{
public:
    struct Piece
    {
        int start = 0;
        int length = 0;
        Syntax::Style style = Syntax::Plain;

        bool operator==(const Piece &) const = default;
    };

    // The state is what the line before left, or a negative number for the first line.
    SyntaxScan(const Syntax &syntax, QStringView line, int state);

    const QList<Piece> &pieces() const { return found; }
    // What the next line begins with.
    int state() const;

private:
    void scan();
    bool takeEscape();
    bool takeClosing();
    bool takeOpening();
    bool takePrefix();
    bool takeNumber();
    bool takeWord();
    void endLine();

    bool isHere(const QString &text) const { return line.sliced(at).startsWith(text); }
    bool mayBegin(const Syntax::Span &span) const;
    bool isWordCharacter(QChar character) const;
    qsizetype wordEnd(qsizetype from) const;
    const Syntax::Span *span() const;
    void flush();
    void add(qsizetype start, qsizetype end, Syntax::Style style);

    const Syntax &syntax;
    const QStringView line;
    // The spans that are open, the innermost last.
    QList<int> open;
    QList<Piece> found;
    qsizetype at = 0;
    // Where the part of the innermost span begins that is not added yet.
    qsizetype begin = 0;
    bool escapesEnd = false;
};
