#include "component/ComponentTree.h"

#include "component/ipxact.h"

#include <algorithm>
#include <iterator>

namespace MorvalenCore {

ComponentTree::ComponentTree(QByteArray bytes, XmlIndex index, Generation generation)
    : xml(std::move(bytes), std::move(index)),
      documentGeneration(generation),
      standardSpace(xml.nameTable().space(Ipxact::namespaceOf(generation))),
      ownSpace(xml.nameTable().space(Ipxact::ownNamespace))
{
}

bool ComponentTree::isOf(XmlNode node, std::uint32_t space, QByteArrayView local) const
{
    const XmlName &name = xml.name(node);
    return name.space == space && name.local == local;
}

bool ComponentTree::isStandard(XmlNode node, QByteArrayView local) const
{
    return isOf(node, standardSpace, local);
}

bool ComponentTree::isOwn(XmlNode node, QByteArrayView local) const
{
    return isOf(node, ownSpace, local);
}

bool ComponentTree::isOwn(XmlNode node) const { return xml.name(node).space == ownSpace; }

XmlNode ComponentTree::child(XmlNode parent, std::uint32_t space, QByteArrayView local) const
{
    if (parent == 0)
        return 0;
    XmlNode node = xml.first(parent);
    while (node != 0 && !isOf(node, space, local))
        node = xml.next(node);
    return node;
}

QList<XmlNode> ComponentTree::children(XmlNode parent, std::uint32_t space,
                                       QByteArrayView local) const
{
    QList<XmlNode> found;
    for (XmlNode node = child(parent, space, local); node != 0; node = xml.next(node)) {
        if (isOf(node, space, local))
            found += node;
    }
    return found;
}

XmlNode ComponentTree::standardChild(XmlNode parent, QByteArrayView local) const
{
    return child(parent, standardSpace, local);
}

XmlNode ComponentTree::ownChild(XmlNode parent, QByteArrayView local) const
{
    return child(parent, ownSpace, local);
}

QList<XmlNode> ComponentTree::standardChildren(XmlNode parent, QByteArrayView local) const
{
    return children(parent, standardSpace, local);
}

QList<XmlNode> ComponentTree::ownChildren(XmlNode parent, QByteArrayView local) const
{
    return children(parent, ownSpace, local);
}

QString ComponentTree::standardText(XmlNode parent, QByteArrayView local) const
{
    const XmlNode node = standardChild(parent, local);
    return node != 0 ? xml.text(node) : QString();
}

QString ComponentTree::ownText(XmlNode parent, QByteArrayView local) const
{
    const XmlNode node = ownChild(parent, local);
    return node != 0 ? xml.text(node) : QString();
}

QString ComponentTree::attribute(XmlNode node, QByteArrayView local) const
{
    return node != 0 ? xml.attribute(node, local).value_or(QString()) : QString();
}

XmlNode ComponentTree::addStandard(XmlNode parent, QByteArrayView local)
{
    return xml.insert(parent, lastPlaceFor(parent, local), local, xml.name(parent).prefix);
}

XmlNode ComponentTree::copyStandard(XmlNode node, XmlNode parent)
{
    // Nobody looks into what others have put there.
    return xml.copy(node, parent, lastPlaceFor(parent, xml.name(node).local),
                    [this](XmlNode inside) {
                        const std::uint32_t space = xml.name(inside).space;
                        return space != standardSpace && space != ownSpace;
                    });
}

// What it is to stand behind; 0 for the first place.
XmlNode ComponentTree::lastPlaceFor(XmlNode parent, QByteArrayView local) const
{
    const XmlName parentName = xml.name(parent);
    const auto rankOf = [&](QByteArrayView name) {
        return Ipxact::childRank(documentGeneration, parentName.local, name);
    };
    const int rank = rankOf(local);
    XmlNode after = xml.last(parent);
    // Elements that are not in the order are passed over, they say nothing.
    for (XmlNode node = after; rank >= 0 && node != 0; node = xml.previous(node)) {
        const bool known = xml.name(node).space == standardSpace;
        const int other = known ? rankOf(xml.name(node).local) : -1;
        if (other > rank)
            after = xml.previous(node);
        else if (other >= 0)
            break;
    }
    return after;
}

// Those of which a parent has several; of anything else there is one.
bool ComponentTree::isRepeated(XmlNode node) const
{
    static constexpr const char *standard[] = {"fileSet", "file", "parameter"};
    static constexpr const char *own[] = {"folder", "property"};
    return std::any_of(std::begin(standard), std::end(standard),
                       [&](const char *local) { return isStandard(node, local); })
        || std::any_of(std::begin(own), std::end(own),
                       [&](const char *local) { return isOwn(node, local); });
}

bool ComponentTree::restore(std::size_t from, std::size_t to)
{
    QList<XmlNode> back;
    for (std::size_t removal = to; removal-- > from;) {
        if (bringBack(removal, &back))
            continue;
        while (!back.isEmpty())
            xml.remove(back.takeLast());
        return false;
    }
    return true;
}

bool ComponentTree::bringBack(std::size_t removal, QList<XmlNode> *back)
{
    const auto [node, parent] = xml.removal(removal);
    if (xml.isAlive(node))
        return true;
    if (!xml.isAlive(parent)) {
        XmlNode top = parent;
        while (xml.parent(top) != 0)
            top = xml.parent(top);
        std::size_t around = xml.removals();
        while (around > 0 && xml.removal(around - 1).node != top)
            --around;
        if (around == 0 || !bringBack(around - 1, back))
            return false;
    }
    const XmlName &name = xml.name(node);
    if (!isRepeated(node) && child(parent, name.space, name.local) != 0)
        return false;
    xml.putBack(removal);
    back->append(node);
    return true;
}

XmlNode ComponentTree::addOwn(XmlNode parent, QByteArrayView local, XmlNode after)
{
    const XmlName parentName = xml.name(parent);
    QByteArray prefix = parentName.prefix;
    if (parentName.space == ownSpace
        || xml.nameTable().findPrefix(parentName.scope, ownSpace, prefix))
        return xml.insert(parent, after, local, prefix);
    return xml.insertDeclaring(parent, after, local, "mv", ownSpace);
}

XmlNode ComponentTree::addOwn(XmlNode parent, QByteArrayView local)
{
    return addOwn(parent, local, xml.last(parent));
}

XmlNode ComponentTree::ensureStandard(XmlNode parent, QByteArrayView local)
{
    const XmlNode node = standardChild(parent, local);
    return node != 0 ? node : addStandard(parent, local);
}

XmlNode ComponentTree::ensureOwn(XmlNode parent, QByteArrayView local)
{
    const XmlNode node = ownChild(parent, local);
    return node != 0 ? node : addOwn(parent, local);
}

XmlNode ComponentTree::design() const
{
    if (designSeenAt != xml.revision()) {
        seenDesign = ownChild(standardChild(XmlTree::root, "vendorExtensions"), "design");
        designSeenAt = xml.revision();
    }
    return seenDesign;
}

XmlNode ComponentTree::ensureDesign()
{
    const XmlNode node = design();
    return node != 0 ? node
                     : ensureOwn(ensureStandard(XmlTree::root, "vendorExtensions"), "design");
}

XmlNode ComponentTree::item(XmlNode node) const
{
    return ownChild(standardChild(node, "vendorExtensions"), "item");
}

XmlNode ComponentTree::ensureItem(XmlNode node)
{
    const XmlNode found = item(node);
    return found != 0 ? found : ensureOwn(ensureStandard(node, "vendorExtensions"), "item");
}

void ComponentTree::setAttribute(XmlNode node, QByteArrayView local, const QString &value)
{
    xml.setAttribute(node, local, value.isEmpty() ? std::nullopt : std::optional(value));
}

void ComponentTree::prune(XmlNode node)
{
    while (node != 0 && node != XmlTree::root && xml.isEmpty(node)) {
        const bool container =
            isStandard(node, "vendorExtensions") || isStandard(node, "parameters");
        const bool goes =
            container ? !xml.cameEmpty(node) : isOwn(node) && !xml.hasAttributes(node);
        if (!goes)
            return;
        const XmlNode parent = xml.parent(node);
        xml.remove(node);
        node = parent;
    }
}

void ComponentTree::removeAndPrune(XmlNode node)
{
    const XmlNode parent = xml.parent(node);
    xml.remove(node);
    prune(parent);
}

} // namespace MorvalenCore
