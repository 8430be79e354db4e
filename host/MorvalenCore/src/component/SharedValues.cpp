#include "component/SharedValues.h"

#include "component/ComponentTree.h"
#include "component/EditCheck.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

SharedValues::SharedValues(ComponentTree &componentTree) : tree(componentTree) { }

// Files and parameters are the standard's elements and keep ours in their vendorExtensions; an
// element of ours keeps them itself.
XmlNode SharedValues::list(ItemId item) const
{
    if (!tree.xml.isAlive(item.node))
        return 0;
    const XmlNode keeper = tree.isOwn(item.node) ? item.node : tree.item(item.node);
    return tree.ownChild(keeper, "shared");
}

XmlNode SharedValues::find(ItemId item, const QString &name) const
{
    for (const XmlNode node : tree.ownChildren(list(item), "property")) {
        if (tree.attribute(node, "name") == name)
            return node;
    }
    return 0;
}

QList<SharedValue> SharedValues::values(ItemId item) const
{
    QList<SharedValue> values;
    for (const QList nodes = tree.ownChildren(list(item), "property"); const XmlNode node : nodes) {
        const QString type = tree.attribute(node, "type");
        values.append({tree.attribute(node, "name"), type.isEmpty() ? u"string"_s : type,
                       tree.xml.text(node)});
    }
    return values;
}

Status SharedValues::set(ItemId item, const SharedValue &value)
{
    if (const Status refused = EditCheck()
                                   .isThere(tree.xml.isAlive(item.node), u"item")
                                   .isGiven(value.name, u"name of a shared property")
                                   .isCarried({value.name, value.type, value.value})
                                   .status();
        !refused.isOk())
        return refused;
    XmlNode node = find(item, value.name);
    if (node == 0) {
        if (tree.isOwn(item.node))
            makeRoom(item.node);
        const XmlNode keeper = tree.isOwn(item.node) ? item.node : tree.ensureItem(item.node);
        node = tree.addOwn(tree.ensureOwn(keeper, "shared"), "property");
    }
    tree.setAttribute(node, "name", value.name);
    tree.setAttribute(node, "type", value.type);
    tree.xml.setText(node, value.value);
    return {};
}

// The text of one of our own properties moves into an element of its own, so that text and
// elements do not mix.
void SharedValues::makeRoom(XmlNode property)
{
    if (!tree.isOwn(property, "property") || tree.ownChild(property, "value") != 0)
        return;
    const QString text = tree.xml.text(property);
    tree.xml.setText(property, {});
    tree.xml.setText(tree.addOwn(property, "value", 0), text);
}

bool SharedValues::remove(ItemId item, const QString &name)
{
    const XmlNode node = find(item, name);
    if (node == 0)
        return false;
    tree.removeAndPrune(node);
    return true;
}

} // namespace MorvalenCore
