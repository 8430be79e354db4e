#include "ensemble/manuals.h"

#include "ensemble/subcommands.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace ensemble {

namespace {

QList<ManualCall> callsOf(const Row &row, const QString &prefix)
{
    if (!row.items)
        return {{usageOf(row, prefix), QString::fromUtf8(row.does)}};
    QList<ManualCall> calls;
    for (const Row &item : *row.items)
        calls += callsOf(item, prefix + u' ' + QString::fromUtf8(row.word));
    return calls;
}

} // namespace

QList<Manual> manuals()
{
    QList<Manual> all;
    for (const Row &row : subcommands())
        all.append({QString::fromUtf8(row.word), QString::fromUtf8(row.does),
                    callsOf(row, QString::fromUtf8(commandWord))});
    return all;
}

QStringList nextWords(const QStringList &words)
{
    if (words.value(0) != QLatin1StringView(commandWord))
        return {};
    Rows rows = subcommands();
    for (const QString &word : words.sliced(1)) {
        const auto row = std::find_if(rows.begin(), rows.end(), [&word](const Row &candidate) {
            return word == QLatin1StringView(candidate.word);
        });
        if (row == rows.end())
            return {};
        if (!row->items)
            return namesOf(row->options);
        rows = *row->items;
    }
    return wordsOf(rows);
}

} // namespace ensemble
