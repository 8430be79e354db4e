#include "app/designs/ItemStates.h"

using MorvalenCore::AbstractDesignLinkedItem;
using MorvalenCore::LinkedItemState;

namespace {

// More rows than a screen shows. What was asked for before them has been scrolled away.
constexpr int waitingLimit = 200;
constexpr int entryLimit = 20'000;

} // namespace

ItemStates::ItemStates(QObject *parent) : QObject(parent)
{
    clock.start();
    thread.setMaxThreadCount(1);
}

ItemStates::~ItemStates() { end(); }

void ItemStates::end()
{
    cancelled = true;
    thread.waitForDone();
}

std::optional<LinkedItemState>
ItemStates::state(QObject *object, const AbstractDesignLinkedItem &item, const QModelIndex &index)
{
    Entry &entry = entries[object];
    if (entry.item != object)
        entry = {object, std::nullopt, false, true, 0};
    const std::optional<LinkedItemState> known = entry.state;
    if (!entry.isAwaited && (entry.isOld || clock.elapsed() - entry.askedAt > lifetime)) {
        entry.isAwaited = true;
        entry.isOld = false;
        entry.askedAt = clock.elapsed();
        ask({object, object, index, item.stateLookup()});
    }
    return known;
}

void ItemStates::expire()
{
    for (Entry &entry : entries)
        entry.isOld = true;
}

void ItemStates::ask(const Request &request)
{
    waiting.append(request);
    if (waiting.size() > waitingLimit) {
        const Request dropped = waiting.takeFirst();
        const auto entry = entries.find(dropped.key);
        if (entry != entries.end()) {
            entry->isAwaited = false;
            entry->isOld = true;
        }
    }
    forgetSome();
    if (!current)
        lookUpNext();
}

void ItemStates::lookUpNext()
{
    current.reset();
    if (waiting.isEmpty() || cancelled)
        return;
    current = waiting.takeLast();
    thread.start([this, lookup = current->lookup] {
        const LinkedItemState state = lookup(cancelled);
        QMetaObject::invokeMethod(
            this, [this, state] { take(state); }, Qt::QueuedConnection);
    });
}

void ItemStates::take(const LinkedItemState &state)
{
    const Request request = *current;
    lookUpNext();
    const auto entry = entries.find(request.key);
    if (entry == entries.end() || !request.item || entry->item != request.item)
        return;
    const bool isNews = entry->state != state;
    entry->state = state;
    entry->isAwaited = false;
    if (isNews && request.index.isValid())
        Q_EMIT found(request.index);
}

// What is awaited stays; the others are looked up again when they are shown.
void ItemStates::forgetSome()
{
    if (entries.size() > entryLimit)
        entries.removeIf([](auto entry) { return !entry.value().isAwaited; });
}
