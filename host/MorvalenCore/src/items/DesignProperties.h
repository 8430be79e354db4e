#pragma once

#include "document/ItemId.h"
#include "items/ItemTable.h"
#include "items/PropertyItem.h"

#include <Qtilities/Status.h>

#include <QVariant>

namespace MorvalenCore {

class DesignState;

// The properties of a design, by name. Part of its design.
class DesignProperties
{
public:
    explicit DesignProperties(DesignState &designState) : state(designState) { }

    // Takes up what the document holds. A parameter without a name is none of ours.
    void load();
    void clear()
    {
        table.clear();
        gone.clear();
    }

    // See IDesign for what these do.
    DesignProperty *find(const QString &name) const { return table.byKey(name); }
    Qtilities::Core::Result<DesignProperty *>
    add(const QString &name, const Qtilities::Core::QtilitiesCategory &category,
        const QVariant &value, bool readOnly);
    Qtilities::Core::Status remove(const QString &name);
    // Brings back a property that was removed, as it was in the document.
    Qtilities::Core::Status restore(const QString &name);
    QList<DesignProperty *> all() const;

    // Whether a property can get that name.
    Qtilities::Core::Status checkName(const QString &name) const;
    // Called when a property has got another name.
    void renamed(const QString &oldName, const QString &newName);

    ActiveItems<DesignProperty> active;

private:
    PropertyItem *takeUp(const QString &name, PropertyId entry);

    DesignState &state;
    ItemTable<PropertyItem, PropertyId> table;
    QHash<QString, RemovedItem<PropertyId>> gone;
};

} // namespace MorvalenCore
