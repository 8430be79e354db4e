#include "items/PropertyItem.h"

#include "items/DesignProperties.h"
#include "items/DesignState.h"

#include <Qtilities/categorytext.h>

#include <QDynamicPropertyChangeEvent>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::QtilitiesProperty;
using Qtilities::Core::Status;

namespace MorvalenCore {

PropertyItem::PropertyItem(DesignProperties &owner, DesignState &designState)
    : DesignProperty(nullptr),
      properties(owner),
      state(designState),
      shared(this, designState)
{
}

QString PropertyItem::getName(const Qtilities::Core::Observer *) const
{
    return state.document().properties().name(entries.first());
}

Status PropertyItem::trySetName(const QString &name)
{
    const QString oldName = getName(nullptr);
    if (name == oldName)
        return {};
    const Status status = change([&](PropertyId entry) {
        const Status accepted = properties.checkName(name);
        return accepted.isOk() ? state.document().properties().setName(entry, name) : accepted;
    });
    if (status.isOk())
        properties.renamed(oldName, name);
    return status;
}

QtilitiesCategory PropertyItem::category() const
{
    return Qtilities::Core::categoryFrom(state.document().properties().category(entries.first()));
}

Status PropertyItem::trySetCategory(const QtilitiesCategory &category)
{
    return change([&](PropertyId entry) {
        return state.document().properties().setCategory(entry, textOf(category));
    });
}

QtilitiesProperty PropertyItem::propertyData() const
{
    const PropertyData data = state.document().properties().data(entries.first());
    const QVariant value = QtilitiesProperty::constructVariant(data.type, data.value);
    QtilitiesProperty property(data.name, value.isValid() ? value : QVariant(data.value));
    property.setReadOnly(data.readOnly || state.isReadOnly());
    property.setRemovable(data.removable);
    return property;
}

Status PropertyItem::trySetValue(const QVariant &value)
{
    return change([&](PropertyId entry) {
        return state.document().properties().setValue(entry, value.toString(),
                                                      QtilitiesProperty::typeName(value));
    });
}

void PropertyItem::addElement(PropertyId entry)
{
    entries.append(entry);
    shared.load(entry);
}

bool PropertyItem::event(QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange) {
        shared.propertyChanged(static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName(),
                               QList<ItemId>(entries.cbegin(), entries.cend()));
    }
    return DesignProperty::event(event);
}

Status PropertyItem::change(const std::function<Status(PropertyId)> &edit)
{
    return state.change([&] {
        if (state.document().properties().isReadOnly(entries.first()))
            return Status::readOnly(u"The property \"%1\" of the design \"%2\" is read-only"_s.arg(
                getName(nullptr), state.name()));
        Status status;
        for (const PropertyId &entry : entries) {
            if (status.isOk())
                status = edit(entry);
        }
        return status;
    });
}

} // namespace MorvalenCore
