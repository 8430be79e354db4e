#include "component/listalignment.h"

#include <QHash>

#include <algorithm>

namespace MorvalenCore {

namespace {

// For each wanted entry a present one of its name, each taken once, or -1.
QList<int> placesByName(const QStringList &present, const QStringList &wanted)
{
    QHash<QString, QList<int>> places;
    for (qsizetype i = present.size(); i-- > 0;)
        places[present[i]].append(int(i));
    QList<int> found;
    found.reserve(wanted.size());
    for (const QString &name : wanted) {
        const auto free = places.find(name);
        found.append(free == places.end() || free->isEmpty() ? -1 : free->takeLast());
    }
    return found;
}

// Leaves a longest ascending sequence of places, and -1 for the others.
void keepLongestAscent(QList<int> *places)
{
    QList<int> ends;
    QList<int> before(places->size(), -1);
    for (int i = 0; i < places->size(); ++i) {
        if (places->at(i) < 0)
            continue;
        const auto end =
            std::lower_bound(ends.begin(), ends.end(), places->at(i),
                             [&](int other, int place) { return places->at(other) < place; });
        before[i] = end == ends.begin() ? -1 : *std::prev(end);
        if (end == ends.end())
            ends.append(i);
        else
            *end = i;
    }
    QList<int> kept(places->size(), -1);
    for (int i = ends.isEmpty() ? -1 : ends.last(); i >= 0; i = before[i])
        kept[i] = places->at(i);
    *places = kept;
}

} // namespace

QList<int> alignLists(const QStringList &present, const QStringList &wanted)
{
    QList<int> places = placesByName(present, wanted);
    keepLongestAscent(&places);
    // In the gaps, in order, as long as there are present ones.
    QList<int> limits(places.size(), int(present.size()));
    for (qsizetype i = places.size() - 1; i-- > 0;)
        limits[i] = places[i + 1] < 0 ? limits[i + 1] : places[i + 1];
    int next = 0;
    for (qsizetype i = 0; i < places.size(); ++i) {
        if (places[i] < 0 && next < limits[i])
            places[i] = next;
        next = std::max(next, places[i] + 1);
    }
    return places;
}

} // namespace MorvalenCore
