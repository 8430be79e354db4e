#pragma once

#include <QList>
#include <QStringList>

// Names that cannot stay as they are: empty ones, and those that stand twice.
namespace nameproblems {

struct Problem
{
    // Of the rows that have such a name.
    QList<int> rows;
    // One sentence.
    QString text;
};

// The texts are "%1" for a name that stands twice, and a whole sentence for empty ones.
QList<Problem> of(const QStringList &names, const QString &twice, const QString &empty);

} // namespace nameproblems
