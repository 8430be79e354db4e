#include "designs/DesignAnnouncements.h"

#include <MorvalenCore/ChangeBracket.h>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

DesignAnnouncements::Entry &DesignAnnouncements::entry(const Interfaces::IDesign *design,
                                                       const QString &known)
{
    for (Entry &news : entries) {
        if (news.design == design && !news.isClosed)
            return news;
    }
    return entries.emplace_back(Entry {.design = design, .known = known});
}

void DesignAnnouncements::attached(const Interfaces::IDesign *design)
{
    entry(design, QString());
    sendNowOrLater();
}

void DesignAnnouncements::closed(const Interfaces::IDesign *design, const QString &id)
{
    entry(design, id).isClosed = true;
    sendNowOrLater();
}

void DesignAnnouncements::changed(const Interfaces::IDesign *design)
{
    // A batch of changes to one design comes this way each time.
    if (!entries.empty() && entries.back().design == design && entries.back().isChanged)
        return;
    entry(design, design->id(u"."_s)).isChanged = true;
    sendNowOrLater();
}

void DesignAnnouncements::idChanged(const Interfaces::IDesign *design, const QString &oldId)
{
    entry(design, oldId);
    sendNowOrLater();
}

void DesignAnnouncements::activeChanged()
{
    active = true;
    sendNowOrLater();
}

void DesignAnnouncements::sendNowOrLater()
{
    ChangeBracket *bracket = ChangeBracket::instance();
    if (bracket->depth() == 0)
        send();
    else
        listenTo(bracket);
}

// Once for all brackets: hundreds of designs are opened and closed in one script.
void DesignAnnouncements::listenTo(const ChangeBracket *bracket)
{
    if (closings && bracket == heard)
        return;
    QObject::disconnect(closings);
    closings = QObject::connect(bracket, &ChangeBracket::closed, manager, [this] { send(); });
    heard = bracket;
}

// Listeners may change designs themselves, which is told of in a round of its own.
void DesignAnnouncements::send()
{
    const std::vector<Entry> all = std::exchange(entries, {});
    const bool activeToo = std::exchange(active, false);
    for (const Entry &news : all) {
        if (news.isClosed && !news.known.isEmpty())
            Q_EMIT manager->designClosed(news.known);
    }
    for (const Entry &news : all) {
        if (!news.isClosed)
            tellOf(news);
    }
    if (activeToo)
        Q_EMIT manager->activeDesignChanged();
}

void DesignAnnouncements::tellOf(const Entry &news)
{
    const QString id = news.design->id(u"."_s);
    if (news.known.isEmpty()) {
        Q_EMIT manager->designAttached(id);
        return;
    }
    if (news.known != id)
        Q_EMIT manager->designIdChanged(news.known, id);
    if (news.isChanged)
        Q_EMIT manager->designChanged(id);
}

} // namespace MorvalenCore
