#pragma once

#include <MorvalenCore/IDesign.h>

#include <QHash>
#include <QList>

namespace MorvalenCore {

// The open designs by id, in the order of opening, and the order in which they were made active.
// One per design manager, part of it; owns nothing.
class OpenDesigns
{
public:
    QList<Interfaces::IDesign *> all() const { return order; }
    QStringList ids() const;
    // Null when none is open under that id.
    Interfaces::IDesign *find(const QString &id) const { return byId.value(id); }

    // The design whose component file was where the links of a path lead, when it was added; null
    // when there is none.
    Interfaces::IDesign *findByFile(const QString &path) const;

    // The place is that of its component file, all links followed; empty when it has none.
    void add(const QString &id, Interfaces::IDesign *design, const QString &place);
    // The id that it had is the answer. The design itself is not looked at.
    QString remove(Interfaces::IDesign *design);
    void rename(const QString &oldId, const QString &newId);

    // The active design: the one made active last among those open; null when there is none.
    Interfaces::IDesign *active() const { return activations.value(activations.size() - 1); }
    void activate(Interfaces::IDesign *design);

private:
    QList<Interfaces::IDesign *> order;
    QHash<QString, Interfaces::IDesign *> byId;
    QHash<QString, Interfaces::IDesign *> byPlace;
    // The last one is active now.
    QList<Interfaces::IDesign *> activations;
};

} // namespace MorvalenCore
