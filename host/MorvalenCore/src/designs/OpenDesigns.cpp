#include "designs/OpenDesigns.h"

#include <Qtilities/paths.h>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

QStringList OpenDesigns::ids() const
{
    QStringList list;
    for (const Interfaces::IDesign *design : order)
        list.append(design->id(u"."_s));
    return list;
}

void OpenDesigns::add(const QString &id, Interfaces::IDesign *design, const QString &place)
{
    order.append(design);
    byId.insert(id, design);
    if (!place.isEmpty())
        byPlace.insert(place, design);
}

Interfaces::IDesign *OpenDesigns::findByFile(const QString &path) const
{
    // Many scripts have one design open at a time, and each step of a path asks the disk.
    return byPlace.isEmpty() ? nullptr : byPlace.value(Qtilities::Core::canonicalPath(path));
}

QString OpenDesigns::remove(Interfaces::IDesign *design)
{
    const QString id = byId.key(design);
    order.removeOne(design);
    activations.removeOne(design);
    byId.remove(id);
    byPlace.remove(byPlace.key(design));
    return id;
}

void OpenDesigns::rename(const QString &oldId, const QString &newId)
{
    if (Interfaces::IDesign *design = byId.take(oldId))
        byId.insert(newId, design);
}

void OpenDesigns::activate(Interfaces::IDesign *design)
{
    activations.removeOne(design);
    activations.append(design);
}

} // namespace MorvalenCore
