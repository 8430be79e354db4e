#pragma once

#include "document/ItemId.h"
#include "items/ItemTable.h"
#include "items/SharedPropertyKeeper.h"

#include <MorvalenCore/DesignProperty.h>

#include <Qtilities/Status.h>

#include <functional>

namespace MorvalenCore {

class DesignProperties;
class DesignState;

// A property of a design, kept in the design's document.
class PropertyItem final : public DesignProperty
{
    Q_OBJECT

public:
    PropertyItem(DesignProperties &owner, DesignState &designState);

    QString getName(const Qtilities::Core::Observer *context) const override;
    Qtilities::Core::Status trySetName(const QString &name) override;
    Qtilities::Core::QtilitiesCategory category() const override;
    Qtilities::Core::Status
    trySetCategory(const Qtilities::Core::QtilitiesCategory &category) override;
    // Read-only also as long as the design is.
    Qtilities::Core::QtilitiesProperty propertyData() const override;
    Qtilities::Core::Status trySetValue(const QVariant &value) override;

    // The elements in the document, in its order; several only where it gives a name twice.
    const Elements<PropertyId> &elements() const { return entries; }
    void addElement(PropertyId entry);

protected:
    bool event(QEvent *event) override;

private:
    // Changes the property itself, unless it is read-only.
    Qtilities::Core::Status
    change(const std::function<Qtilities::Core::Status(PropertyId entry)> &edit);

    DesignProperties &properties;
    DesignState &state;
    Elements<PropertyId> entries;
    SharedPropertyKeeper shared;
};

} // namespace MorvalenCore
