#include "app/builds/nameproblems.h"

QList<nameproblems::Problem> nameproblems::of(const QStringList &names, const QString &twice,
                                              const QString &empty)
{
    QList<Problem> problems;
    QStringList seen;
    for (const QString &name : names) {
        if (seen.contains(name))
            continue;
        seen.append(name);
        QList<int> rows;
        for (int row = 0; row < names.size(); ++row) {
            if (names[row] == name)
                rows.append(row);
        }
        if (name.trimmed().isEmpty())
            problems.append({rows, empty});
        else if (rows.size() > 1)
            problems.append({rows, twice.arg(name)});
    }
    return problems;
}
