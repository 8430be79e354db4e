#include "items/DesignProperties.h"

#include "items/DesignState.h"

#include <Qtilities/categorytext.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

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

Status DesignProperties::checkName(const QString &name) const
{
    if (name.isEmpty())
        return Status::invalidArgument(u"The name of a property cannot be empty"_s);
    if (table.byKey(name))
        return Status::alreadyExists(
            u"The design \"%1\" has the property \"%2\" already"_s.arg(state.name(), name));
    return {};
}

Result<DesignProperty *> DesignProperties::add(const QString &name,
                                               const QtilitiesCategory &category,
                                               const QVariant &value, bool readOnly)
{
    PropertyItem *item = nullptr;
    const Status status = state.change([&] {
        const Status accepted = checkName(name);
        if (!accepted.isOk())
            return accepted;
        PropertyData data;
        data.name = name;
        data.type = QtilitiesProperty::typeName(value);
        data.category = textOf(category);
        data.value = value.toString();
        data.readOnly = readOnly;
        const Result<PropertyId> entry = state.document().properties().add(data);
        if (entry.isOk())
            item = takeUp(name, entry.value());
        return entry.status();
    });
    if (!status.isOk())
        return status;
    return item;
}

Status DesignProperties::remove(const QString &name)
{
    const PropertyItem *item = table.byKey(name);
    if (!item)
        return Status::notFound(
            u"The design \"%1\" has no property \"%2\""_s.arg(state.name(), name));
    return state.change([&] {
        DocumentProperties &document = state.document().properties();
        for (const PropertyId &entry : item->elements()) {
            if (!document.isRemovable(entry))
                return Status::readOnly(
                    u"The property \"%1\" of the design \"%2\" cannot be removed"_s.arg(
                        name, state.name()));
        }
        RemovedItem<PropertyId> record {item->elements(), state.document().removals(), 0};
        for (const PropertyId &entry : item->elements())
            document.remove(entry);
        record.to = state.document().removals();
        gone.insert(name, record);
        table.remove(name);
        return Status();
    });
}

Status DesignProperties::restore(const QString &name)
{
    const RemovedItem<PropertyId> record = gone.value(name);
    if (record.elements.isEmpty())
        return Status::notFound(
            u"Nothing has removed the property \"%1\" from the design \"%2\""_s.arg(name,
                                                                                    state.name()));
    return state.change([&] {
        Status status = checkName(name);
        if (status.isOk())
            status = state.document().restore(record.from, record.to);
        if (!status.isOk())
            return status;
        gone.remove(name);
        for (const PropertyId &entry : record.elements)
            takeUp(name, entry);
        return Status();
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
