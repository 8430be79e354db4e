#include "app/designs/Throttle.h"

#include <algorithm>

namespace {

// Work that takes longer than so many milliseconds takes at most one part of so many of the time of
// a script that lets events in.
constexpr qint64 unnoticed = 16;
constexpr qint64 restFactor = 5;

} // namespace

Throttle::Throttle(QObject *parent) : QObject(parent)
{
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &Throttle::due);
}

void Throttle::request()
{
    if (timer.isActive())
        return;
    const qint64 rest = lastEffort > unnoticed ? restFactor * lastEffort : 0;
    const qint64 past = sinceEnd.isValid() ? sinceEnd.elapsed() : rest;
    timer.start(int(std::max<qint64>(0, rest - past)));
}

void Throttle::end()
{
    lastEffort = effort.elapsed();
    sinceEnd.start();
}
