#pragma once

#include <QString>

class QTextDocument;

// With what and how far the lines of a text are indented.
struct Indentation
{
    bool hasSpaces = true;
    int width = 4; // columns of a step

    // What one step is written as.
    QString step() const { return hasSpaces ? QString(width, u' ') : QStringLiteral("\t"); }

    // As most of the lines of the text are, of which the first ones are looked at; the usual one
    // for a text that has none indented.
    static Indentation of(const QTextDocument &text, const Indentation &usual);

    bool operator==(const Indentation &) const = default;
};
