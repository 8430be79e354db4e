#include "designs/OpenDesigns.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

QStringList OpenDesigns::ids() const
{
    QStringList list;
    for (const Interfaces::IDesign *design : order)
        list.append(design->id(u"."_s));
    return list;
}

void OpenDesigns::add(const QString &id, Interfaces::IDesign *design)
{
    order.append(design);
    byId.insert(id, design);
    const QString file = QFileInfo(design->componentFileName()).canonicalFilePath();
    if (!file.isEmpty())
        byFile.insert(file, design);
}

Interfaces::IDesign *OpenDesigns::findByFile(const QString &path) const
{
    const QString file = QFileInfo(path).canonicalFilePath();
    return file.isEmpty() ? nullptr : byFile.value(file);
}

QString OpenDesigns::remove(Interfaces::IDesign *design)
{
    const QString id = byId.key(design);
    order.removeAll(design);
    activations.removeAll(design);
    const auto isDesign = [design](const auto &entry) { return entry.value() == design; };
    byId.removeIf(isDesign);
    byFile.removeIf(isDesign);
    return id;
}

void OpenDesigns::rename(const QString &oldId, const QString &newId)
{
    if (Interfaces::IDesign *design = byId.take(oldId))
        byId.insert(newId, design);
}

void OpenDesigns::activate(Interfaces::IDesign *design)
{
    activations.removeAll(design);
    activations.append(design);
}

} // namespace MorvalenCore
