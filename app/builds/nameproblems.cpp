#include "app/builds/nameproblems.h"

NameProblems findNameProblems(const QStringList &names, const QString &twice, const QString &empty)
{
    QHash<QString, QList<int>> rowsOf;
    for (int row = 0; row < names.size(); ++row)
        rowsOf[names[row]].append(row);
    NameProblems problems;
    for (int row = 0; row < names.size(); ++row) {
        const QList<int> rows = rowsOf.value(names[row]);
        const bool isEmpty = names[row].trimmed().isEmpty();
        if (rows.first() != row || (!isEmpty && rows.size() == 1))
            continue;
        const QString text = isEmpty ? empty : twice.arg(names[row]);
        problems.texts.append(text);
        for (const int same : rows)
            problems.ofRows.insert(same, text);
    }
    return problems;
}
