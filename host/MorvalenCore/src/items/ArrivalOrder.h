#pragma once

#include <QHash>
#include <QList>
#include <QMap>

namespace MorvalenCore {

// Values by their keys, listed in the order in which the keys came. Finding takes the same time
// however many there are.
template <typename Key, typename Value>
class ArrivalOrder
{
public:
    bool isEmpty() const { return places.isEmpty(); }

    // A key that is there keeps its place.
    void insert(const Key &key, Value value)
    {
        auto place = places.find(key);
        if (place == places.end())
            place = places.insert(key, ++last);
        entries.insert(*place, std::move(value));
    }

    // The value, taken out; a default one when there is none.
    Value take(const Key &key) { return entries.take(places.take(key)); }

    bool contains(const Key &key) const { return places.contains(key); }
    Value value(const Key &key) const { return entries.value(places.value(key)); }
    QList<Value> values() const { return entries.values(); }

    void clear()
    {
        places.clear();
        entries.clear();
    }

private:
    // Places count from 1; nothing is at 0.
    QHash<Key, qint64> places;
    QMap<qint64, Value> entries;
    qint64 last = 0;
};

} // namespace MorvalenCore
