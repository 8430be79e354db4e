#pragma once

#include <QList>
#include <QStringList>

// How the lines of one text differ from those of another.
namespace linediff {

struct Line
{
    enum Kind { Same, Removed, Added };

    Kind kind = Same;
    QString text;

    bool operator==(const Line &) const = default;
};

// Every line of both texts, in order, with the fewest lines removed and added; of texts that
// differ in too many places all lines between the first and the last difference.
QList<Line> compare(const QStringList &old, const QStringList &now);

// The same as a text like that of other tools: lines with " ", "-" or "+" before them, with a few
// lines around each difference, and a line with the numbers before each part.
QString text(const QStringList &old, const QStringList &now);

} // namespace linediff
