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
    closeWhenControlReturns();
    if (++openBrackets > 1)
        return;
    sinceBreath.start();
    Q_EMIT opened();
}

void ChangeBracket::close()
{
    if (openBrackets > 0 && --openBrackets == 0)
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
    awaitedReturns.insert(level, openBrackets);
    auto *const sentinel = new QObject(this);
    connect(sentinel, &QObject::destroyed, this,
            [this, level] { closeDownTo(awaitedReturns.take(level)); });
    sentinel->deleteLater();
    if (!heart.isActive())
        heart.start();
}

void ChangeBracket::closeDownTo(int depth)
{
    while (openBrackets > depth)
        close();
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
