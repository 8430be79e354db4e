#include "items/DesignProperties.h"

#include "items/DesignState.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::QtilitiesProperty;

namespace MorvalenCore {

void DesignProperties::load()
{
    const DocumentProperties &document = state.document().properties();
    for (const PropertyId &entry : document.properties()) {
        const QString name = document.name(entry);
        if (!name.isEmpty())
            takeUp(name, entry);
    }
}

PropertyItem *DesignProperties::takeUp(const QString &name, PropertyId entry)
{
    return table.insert(name, entry, [&] { return std::make_shared<PropertyItem>(*this, state); });
}

QString DesignProperties::nameRefusal(const QString &name) const
{
    if (name.isEmpty())
        return u"The name of a property cannot be empty"_s;
    if (table.byKey(name))
        return u"The design \"%1\" has the property \"%2\" already"_s.arg(state.name(), name);
    return {};
}

DesignProperty *DesignProperties::add(const QString &name, const QtilitiesCategory &category,
                                      const QVariant &value, bool readOnly, QString *error)
{
    PropertyItem *item = nullptr;
    state.change(error, [&](QString *reason) {
        *reason = nameRefusal(name);
        if (!reason->isEmpty())
            return false;
        PropertyData data;
        data.name = name;
        data.type = QtilitiesProperty::typeName(value);
        data.category = category.toString(u"::"_s);
        data.value = value.toString();
        data.readOnly = readOnly;
        const PropertyId entry = state.document().properties().add(data, reason);
        if (!entry)
            return false;
        item = takeUp(name, entry);
        return true;
    });
    return item;
}

bool DesignProperties::remove(const QString &name)
{
    const PropertyItem *item = table.byKey(name);
    return item && state.change(nullptr, [&](QString *reason) {
        DocumentProperties &document = state.document().properties();
        for (const PropertyId &entry : item->elements()) {
            if (!document.isRemovable(entry)) {
                *reason = u"The property \"%1\" of the design \"%2\" cannot be removed"_s.arg(
                    name, state.name());
                return false;
            }
        }
        for (const PropertyId &entry : item->elements())
            document.remove(entry);
        table.remove(name);
        return true;
    });
}

QList<DesignProperty *> DesignProperties::all() const
{
    return table.inOrder<DesignProperty>(state.document().properties().properties());
}

void DesignProperties::renamed(const QString &oldName, const QString &newName)
{
    table.rename(oldName, newName);
}

} // namespace MorvalenCore
