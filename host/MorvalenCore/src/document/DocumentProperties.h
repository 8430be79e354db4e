#pragma once

#include "document/ItemId.h"

#include <Qtilities/Status.h>

#include <QList>
#include <QString>

namespace MorvalenCore {

// What a new property is made of. Types are the words bool, int, uint, double and string.
struct PropertyData
{
    QString name;
    QString type;
    // Levels joined by "::".
    QString category;
    QString value;
    bool removable = true;
    bool readOnly = false;

    bool operator==(const PropertyData &) const = default;
};

// The properties of a document. Setters write whatever the flags say.
class DocumentProperties
{
public:
    virtual ~DocumentProperties() = default;

    virtual QList<PropertyId> properties() const = 0;

    // All of it at once.
    virtual PropertyData data(PropertyId property) const = 0;
    virtual QString name(PropertyId property) const = 0;
    virtual QString value(PropertyId property) const = 0;
    virtual QString category(PropertyId property) const = 0;
    virtual bool isReadOnly(PropertyId property) const = 0;
    virtual bool isRemovable(PropertyId property) const = 0;

    virtual Qtilities::Core::Result<PropertyId> add(const PropertyData &data) = 0;
    virtual void remove(PropertyId property) = 0;
    virtual Qtilities::Core::Status setName(PropertyId property, const QString &name) = 0;
    // The value, and the type where the document lets it be changed.
    virtual Qtilities::Core::Status setValue(PropertyId property, const QString &value,
                                             const QString &type) = 0;
    virtual Qtilities::Core::Status setCategory(PropertyId property, const QString &category) = 0;
};

} // namespace MorvalenCore
