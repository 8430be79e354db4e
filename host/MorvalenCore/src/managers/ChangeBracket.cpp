#include <MorvalenCore/ChangeBracket.h>

#include <Qtilities/Replaceable.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QThread>

namespace MorvalenCore {

namespace {

Qtilities::Core::Replaceable<ChangeBracket> &slot()
{
    static auto *const theSlot = new Qtilities::Core::Replaceable<ChangeBracket>;
    return *theSlot;
}

// In milliseconds.
constexpr int heartBeat = 50;

} // namespace

ChangeBracket::ChangeBracket(QObject *parent) : QObject(parent)
{
    heart.setInterval(heartBeat);
    connect(&heart, &QTimer::timeout, this, &ChangeBracket::beat);
}

ChangeBracket::~ChangeBracket() = default;

ChangeBracket *ChangeBracket::instance() { return slot().get(); }

void ChangeBracket::setInstance(ChangeBracket *bracket) { slot().set(bracket); }

void ChangeBracket::open()
{
    closeWhatNestedLoopsLeft();
    closeWhenControlReturns();
    if (++openBrackets > 1)
        return;
    sinceBreath.start();
    Q_EMIT opened();
}

void ChangeBracket::close()
{
    closeWhatNestedLoopsLeft();
    closeLast();
}

// What was open somewhere and is closed here is nothing to come back to: a bracket that is opened
// in its place belongs to whoever opens it.
void ChangeBracket::closeLast()
{
    if (openBrackets == 0)
        return;
    --openBrackets;
    for (AwaitedReturn &awaited : awaitedReturns)
        awaited.depth = qMin(awaited.depth, openBrackets);
    if (openBrackets == 0)
        Q_EMIT closed();
}

// A deferred deletion is what Qt carries out when control is back in the event loop that was
// running when it was asked for, and not in one that was started since.
void ChangeBracket::closeWhenControlReturns()
{
    if (!QCoreApplication::instance())
        return;
    const int level = QThread::currentThread()->loopLevel();
    if (awaitedReturns.contains(level))
        return;
    auto *const sentinel = new QObject(this);
    awaitedReturns.insert(level, {openBrackets, sentinel});
    connect(sentinel, &QObject::destroyed, this,
            [this, level] { closeDownTo(awaitedReturns.take(level).depth); });
    sentinel->deleteLater();
    if (!heart.isActive())
        heart.start();
}

// Control has returned from a nested loop, but not yet to a loop that would carry the deletion out.
void ChangeBracket::closeWhatNestedLoopsLeft()
{
    const int level = QThread::currentThread()->loopLevel();
    while (!awaitedReturns.isEmpty() && awaitedReturns.lastKey() > level)
        delete awaitedReturns.last().sentinel;
}

void ChangeBracket::closeDownTo(int depth)
{
    while (openBrackets > depth)
        closeLast();
}

void ChangeBracket::beat()
{
    // A deletion that a pass in a nested loop left alone does not wake the loop it waits for.
    if (!awaitedReturns.isEmpty())
        QAbstractEventDispatcher::instance()->wakeUp();
    if (openBrackets == 0) {
        if (awaitedReturns.isEmpty())
            heart.stop();
        return;
    }
    if (sinceBreath.elapsed() < breathInterval)
        return;
    Q_EMIT closed();
    Q_EMIT opened();
    sinceBreath.start();
}

} // namespace MorvalenCore
