#pragma once

#include "document/DocumentProperties.h"

#include <QByteArrayView>

#include <memory>

namespace MorvalenCore {

class ComponentTree;
class IdReferences;

// The properties of a component document: the component's own parameters, then those that we
// keep beside them. New ones are always ours, since other programs keep checksums over the
// parameters.
class ComponentProperties final : public DocumentProperties
{
public:
    explicit ComponentProperties(ComponentTree &tree);
    ~ComponentProperties() override;

    QList<PropertyId> properties() const override;
    bool contains(PropertyId property) const;
    // Whether it is one of the component's parameters.
    bool isParameter(PropertyId property) const;

    // All of it at once. A parameter's type comes from its format or type attribute, "string"
    // where there is none or where the value does not parse as that type (an expression). It is
    // read-only when it is resolved by a generator or depends on others, and not removable when
    // something else in the document refers to it by its id.
    PropertyData data(PropertyId property) const override;
    QString name(PropertyId property) const override;
    QString value(PropertyId property) const override;
    QString type(PropertyId property) const;
    QString category(PropertyId property) const override;
    bool isReadOnly(PropertyId property) const override;
    bool isRemovable(PropertyId property) const override;

    Qtilities::Core::Result<PropertyId> add(const PropertyData &data) override;
    // Removes it whatever the flags say; the last parameter goes with the element around it.
    void remove(PropertyId property) override;
    Qtilities::Core::Status setName(PropertyId property, const QString &name) override;
    // Writes value text whatever the flags say; a parameter keeps its declared type, and refuses
    // an empty value where its generation of the standard does.
    Qtilities::Core::Status setValue(PropertyId property, const QString &value);
    // Value and type of one of ours; a parameter takes the value only.
    Qtilities::Core::Status setValue(PropertyId property, const QString &value,
                                     const QString &type) override;
    Qtilities::Core::Status setCategory(PropertyId property, const QString &category) override;

private:
    std::uint32_t valueNode(PropertyId property) const;
    bool needsValue(PropertyId property) const;
    QString parameterAttribute(PropertyId property, QByteArrayView name) const;

    ComponentTree &tree;
    // Made when first asked for.
    mutable std::unique_ptr<IdReferences> references;
    mutable std::uint64_t copiesSeen = 0;
};

} // namespace MorvalenCore
