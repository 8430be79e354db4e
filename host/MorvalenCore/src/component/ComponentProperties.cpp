#include "component/ComponentProperties.h"

#include "component/ComponentTree.h"
#include "component/EditCheck.h"
#include "component/IdReferences.h"

#include <array>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// The standard's words for types, of all generations. Others are texts, bit vectors among them.
struct TypeRow
{
    QLatin1StringView standard;
    QLatin1StringView type;
};

constexpr std::array types {
    TypeRow {"bool"_L1, "bool"_L1},        TypeRow {"byte"_L1, "int"_L1},
    TypeRow {"shortint"_L1, "int"_L1},     TypeRow {"int"_L1, "int"_L1},
    TypeRow {"long"_L1, "int"_L1},         TypeRow {"longint"_L1, "int"_L1},
    TypeRow {"float"_L1, "double"_L1},     TypeRow {"real"_L1, "double"_L1},
    TypeRow {"shortreal"_L1, "double"_L1},
};

bool parses(const QString &value, QLatin1StringView type)
{
    bool good = true;
    if (type == "bool"_L1)
        good = value.compare("true"_L1, Qt::CaseInsensitive) == 0
            || value.compare("false"_L1, Qt::CaseInsensitive) == 0;
    else if (type == "int"_L1)
        value.toInt(&good);
    else
        value.toDouble(&good);
    return good;
}

} // namespace

ComponentProperties::ComponentProperties(ComponentTree &componentTree) : tree(componentTree) { }

ComponentProperties::~ComponentProperties() = default;

QList<PropertyId> ComponentProperties::properties() const
{
    QList<XmlNode> nodes =
        tree.standardChildren(tree.standardChild(XmlTree::root, "parameters"), "parameter");
    nodes += tree.ownChildren(tree.ownChild(tree.design(), "properties"), "property");
    QList<PropertyId> list;
    list.reserve(nodes.size());
    for (const XmlNode node : std::as_const(nodes))
        list.append(PropertyId {{node}});
    return list;
}

bool ComponentProperties::contains(PropertyId property) const
{
    return tree.xml.isAlive(property.node);
}

bool ComponentProperties::isParameter(PropertyId property) const
{
    return contains(property) && tree.isStandard(property.node, "parameter");
}

PropertyData ComponentProperties::data(PropertyId property) const
{
    return {name(property),  type(property),        category(property),
            value(property), isRemovable(property), isReadOnly(property)};
}

QString ComponentProperties::name(PropertyId property) const
{
    if (!contains(property))
        return {};
    // The first generations of parameters had their name in an attribute.
    const XmlNode node = isParameter(property) ? tree.standardChild(property.node, "name") : 0;
    return node != 0 ? tree.xml.text(node) : tree.attribute(property.node, "name");
}

QString ComponentProperties::value(PropertyId property) const
{
    if (!contains(property))
        return {};
    const XmlNode node = valueNode(property);
    return tree.xml.text(node != 0 ? node : property.node);
}

XmlNode ComponentProperties::valueNode(PropertyId property) const
{
    return isParameter(property) ? tree.standardChild(property.node, "value")
                                 : tree.ownChild(property.node, "value");
}

// An attribute of a parameter, which the older generations put on its value.
QString ComponentProperties::parameterAttribute(PropertyId property, QByteArrayView name) const
{
    const QString own = tree.attribute(property.node, name);
    return own.isEmpty() ? tree.attribute(valueNode(property), name) : own;
}

// An empty value is no expression of IEEE 1685-2014; its successor takes it.
bool ComponentProperties::needsValue(PropertyId property) const
{
    return tree.generation() == Generation::Ieee2014 && isParameter(property)
        && !value(property).isEmpty();
}

QString ComponentProperties::type(PropertyId property) const
{
    if (!contains(property))
        return {};
    const QString text = u"string"_s;
    if (!isParameter(property)) {
        const QString type = tree.attribute(property.node, "type");
        return type.isEmpty() ? text : type;
    }
    const QString format = parameterAttribute(property, "format");
    const QString standard = format.isEmpty() ? parameterAttribute(property, "type") : format;
    for (const TypeRow &row : types) {
        if (row.standard == standard && parses(value(property), row.type))
            return row.type;
    }
    return text;
}

QString ComponentProperties::category(PropertyId property) const
{
    if (!contains(property))
        return {};
    return tree.attribute(isParameter(property) ? tree.item(property.node) : property.node,
                          "category");
}

bool ComponentProperties::isReadOnly(PropertyId property) const
{
    if (!contains(property))
        return false;
    if (!isParameter(property))
        return tree.attribute(property.node, "readOnly") == "true"_L1;
    const QString resolve = parameterAttribute(property, "resolve");
    return resolve == "generated"_L1 || resolve == "dependent"_L1;
}

bool ComponentProperties::isRemovable(PropertyId property) const
{
    if (!contains(property))
        return false;
    if (!isParameter(property))
        return tree.attribute(property.node, "removable") != "false"_L1;
    // What was copied has other nodes.
    if (!references || copiesSeen != tree.xml.copies()) {
        references = std::make_unique<IdReferences>(tree);
        copiesSeen = tree.xml.copies();
    }
    return !references->isReferenced(property.node);
}

Result<PropertyId> ComponentProperties::add(const PropertyData &data)
{
    if (const Status refused = EditCheck()
                                   .isGiven(data.name, u"name of a property")
                                   .isCarried({data.name, data.type, data.category, data.value})
                                   .status();
        !refused.isOk())
        return refused;
    const XmlNode list = tree.ensureOwn(tree.ensureDesign(), "properties");
    const XmlNode property = tree.addOwn(list, "property");
    tree.setAttribute(property, "name", data.name);
    tree.setAttribute(property, "type", data.type);
    tree.setAttribute(property, "category", data.category);
    tree.setAttribute(property, "removable", data.removable ? QString() : u"false"_s);
    tree.setAttribute(property, "readOnly", data.readOnly ? u"true"_s : QString());
    tree.xml.setText(property, data.value);
    return PropertyId {{property}};
}

void ComponentProperties::remove(PropertyId property)
{
    if (contains(property))
        tree.removeAndPrune(property.node);
}

Status ComponentProperties::setName(PropertyId property, const QString &name)
{
    if (const Status refused = EditCheck()
                                   .isThere(contains(property), u"property")
                                   .isGiven(name, u"name of a property")
                                   .isCarried({name})
                                   .status();
        !refused.isOk())
        return refused;
    const bool inElement = isParameter(property)
        && (tree.standardChild(property.node, "name") != 0
            || !tree.xml.attribute(property.node, "name"));
    if (inElement)
        tree.xml.setText(tree.ensureStandard(property.node, "name"), name);
    else
        tree.setAttribute(property.node, "name", name);
    return {};
}

Status ComponentProperties::setValue(PropertyId property, const QString &value)
{
    if (const Status refused =
            EditCheck().isThere(contains(property), u"property").isCarried({value}).status();
        !refused.isOk())
        return refused;
    if (value.isEmpty() && needsValue(property))
        return Status::invalidArgument(
            u"The value of the parameter %1 must not be empty."_s.arg(name(property)));
    if (references && isParameter(property))
        references->valueChanged(property.node, this->value(property), value);
    XmlNode node = valueNode(property);
    const bool textIsValue =
        !isParameter(property) || tree.standardChild(property.node, "name") == 0;
    if (node == 0)
        node = textIsValue ? property.node : tree.addStandard(property.node, "value");
    tree.xml.setText(node, value);
    return {};
}

Status ComponentProperties::setValue(PropertyId property, const QString &value, const QString &type)
{
    if (const Status refused = EditCheck().isCarried({type}).status(); !refused.isOk())
        return refused;
    if (const Status refused = setValue(property, value); !refused.isOk())
        return refused;
    if (!isParameter(property))
        tree.setAttribute(property.node, "type", type);
    return {};
}

Status ComponentProperties::setCategory(PropertyId property, const QString &category)
{
    if (const Status refused =
            EditCheck().isThere(contains(property), u"property").isCarried({category}).status();
        !refused.isOk())
        return refused;
    if (!isParameter(property)) {
        tree.setAttribute(property.node, "category", category);
        return {};
    }
    const XmlNode item =
        category.isEmpty() ? tree.item(property.node) : tree.ensureItem(property.node);
    if (item == 0)
        return {};
    tree.setAttribute(item, "category", category);
    tree.prune(item);
    return {};
}

} // namespace MorvalenCore
