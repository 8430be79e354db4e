#pragma once

#include <Qtilities/commonends.h>

#include <QHash>
#include <QList>

// How a list of rows becomes another one.

struct RowRange
{
    qsizetype first = 0;
    qsizetype count = 0;

    bool operator==(const RowRange &) const = default;
};

// Removing the ranges from the old list, the last one first, and then inserting the ranges of the
// new list, the first one first, makes the new list of the old one. Rows that stay keep their
// order.
struct RowChanges
{
    QList<RowRange> removals;
    QList<RowRange> insertions;
};

namespace rowchanges {

inline void extend(QList<RowRange> &ranges, qsizetype row)
{
    if (!ranges.isEmpty() && ranges.last().first + ranges.last().count == row)
        ++ranges.last().count;
    else
        ranges.append({row, 1});
}

// The changes for the part of two lists where they differ, which begins at the same row in both.
template <typename Key>
RowChanges between(const QList<Key> &before, const QList<Key> &after, qsizetype begin)
{
    QHash<Key, qsizetype> places;
    for (qsizetype row = 0; row < before.size(); ++row)
        places.insert(before[row], row);
    RowChanges changes;
    QList<bool> stays(before.size(), false);
    qsizetype lastKept = -1;
    for (qsizetype row = 0; row < after.size(); ++row) {
        const qsizetype place = places.value(after[row], -1);
        if (place > lastKept) {
            lastKept = place;
            stays[place] = true;
        } else {
            extend(changes.insertions, begin + row);
        }
    }
    for (qsizetype row = 0; row < before.size(); ++row) {
        if (!stays[row])
            extend(changes.removals, begin + row);
    }
    return changes;
}

} // namespace rowchanges

// The changes from one list of keys to another. The keys of a list differ from each other, but for
// those of rows that are not in the new list.
template <typename Key>
RowChanges rowChanges(const QList<Key> &before, const QList<Key> &after)
{
    const auto [head, tail] = Qtilities::Core::commonEnds(before, after);
    return rowchanges::between(before.sliced(head, before.size() - head - tail),
                               after.sliced(head, after.size() - head - tail), head);
}
