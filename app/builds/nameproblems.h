#pragma once

#include <QHash>
#include <QStringList>

// Names that cannot stay as they are: empty ones, and those that stand twice.
struct NameProblems
{
    // A sentence for each such name.
    QStringList texts;
    // The sentence of each row that has such a name.
    QHash<int, QString> ofRows;
};

// The texts are one with "%1" for a name that stands twice, and a whole sentence for empty ones.
NameProblems findNameProblems(const QStringList &names, const QString &twice, const QString &empty);
