#pragma once

#include <MorvalenCore/DesignManager.h>

#include <vector>

namespace MorvalenCore {

class ChangeBracket;

// Gathers what happens to open designs while a bracket of changes is open, so that the design
// manager's signals are sent once, when it closes. One per design manager, part of it.
class DesignAnnouncements
{
public:
    explicit DesignAnnouncements(DesignManager *sender) : manager(sender) { }

    void attached(const Interfaces::IDesign *design);
    // The design, which is not looked at, had that id.
    void closed(const Interfaces::IDesign *design, const QString &id);
    void changed(const Interfaces::IDesign *design);
    void idChanged(const Interfaces::IDesign *design, const QString &oldId);
    void activeChanged();

private:
    struct Entry
    {
        const Interfaces::IDesign *design = nullptr;
        // The id that listeners know; empty when they do not know the design yet.
        QString known;
        bool isClosed = false;
        bool isChanged = false;
    };

    Entry &entry(const Interfaces::IDesign *design, const QString &known);
    void sendNowOrLater();
    void listenTo(const ChangeBracket *bracket);
    void send();
    void tellOf(const Entry &news);

    DesignManager *manager;
    std::vector<Entry> entries;
    bool active = false;
    QMetaObject::Connection closings;
    // Whose closings they are; not looked at.
    const ChangeBracket *heard = nullptr;
};

} // namespace MorvalenCore
