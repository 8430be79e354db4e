#include "app/builds/nameproblems.h"

#include <QHash>

QList<nameproblems::Problem> nameproblems::of(const QStringList &names, const QString &twice,
                                              const QString &empty)
{
    QHash<QString, QList<int>> rowsOf;
    for (int row = 0; row < names.size(); ++row)
        rowsOf[names[row]].append(row);
    QList<Problem> problems;
    for (int row = 0; row < names.size(); ++row) {
        const QList<int> rows = rowsOf.value(names[row]);
        if (rows.first() != row)
            continue;
        if (names[row].trimmed().isEmpty())
            problems.append({rows, empty});
        else if (rows.size() > 1)
            problems.append({rows, twice.arg(names[row])});
    }
    return problems;
}
