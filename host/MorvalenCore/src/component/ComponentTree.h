#pragma once

#include "component/Generation.h"
#include "component/XmlTree.h"

#include <cstdint>
#include <optional>

namespace MorvalenCore {

// A component's XML in the words of the standard and of our extensions: finds and makes elements
// by name, in the order of the document's generation, with the prefix in force. Shared by the
// parts of one ComponentDocument.
class ComponentTree
{
public:
    ComponentTree(QByteArray bytes, XmlIndex index, Generation generation);

    XmlTree xml;

    Generation generation() const { return documentGeneration; }

    bool isStandard(XmlNode node, QByteArrayView local) const;
    bool isOwn(XmlNode node, QByteArrayView local) const;
    bool isOwn(XmlNode node) const;

    // The first child of that name; 0 when there is none, or no parent.
    XmlNode standardChild(XmlNode parent, QByteArrayView local) const;
    XmlNode ownChild(XmlNode parent, QByteArrayView local) const;
    // All children of that name.
    QList<XmlNode> standardChildren(XmlNode parent, QByteArrayView local) const;
    QList<XmlNode> ownChildren(XmlNode parent, QByteArrayView local) const;

    // The text of a child element; empty when there is none.
    QString standardText(XmlNode parent, QByteArrayView local) const;
    QString ownText(XmlNode parent, QByteArrayView local) const;
    // An attribute; empty when there is none.
    QString attribute(XmlNode node, QByteArrayView local) const;

    // Adds a child at the last place that the order allows.
    XmlNode addStandard(XmlNode parent, QByteArrayView local);
    // Adds a child as the next one behind a sibling.
    XmlNode addOwn(XmlNode parent, QByteArrayView local, XmlNode after);
    // Adds a child as the last one.
    XmlNode addOwn(XmlNode parent, QByteArrayView local);
    // The first child of that name, added where there is none.
    XmlNode ensureStandard(XmlNode parent, QByteArrayView local);
    XmlNode ensureOwn(XmlNode parent, QByteArrayView local);

    // Our elements: mv:design of the component, mv:item of a file or parameter.
    XmlNode design() const;
    XmlNode ensureDesign();
    XmlNode item(XmlNode node) const;
    XmlNode ensureItem(XmlNode node);

    // Sets an attribute; an empty value removes it.
    void setAttribute(XmlNode node, QByteArrayView local, const QString &value);

    // Removes the element if it is one of ours and says nothing, or an empty vendorExtensions or
    // parameters, and then looks at the one around it. A standard element that came empty stays.
    void prune(XmlNode node);
    // Removes the element, and what around it would be left empty.
    void removeAndPrune(XmlNode node);

    // Brings back what was removed from one count of removals to another, and what is missing
    // around it. False, with nothing changed, when something else has taken the place of that.
    bool restore(std::size_t from, std::size_t to);
    // Adds a copy of a child of another parent, at the last place that the order allows; 0 when
    // it cannot be copied as it is.
    XmlNode copyStandard(XmlNode node, XmlNode parent);

private:
    bool isRepeated(XmlNode node) const;
    bool bringBack(std::size_t removal, QList<XmlNode> *back);
    XmlNode lastPlaceFor(XmlNode parent, QByteArrayView local) const;
    bool isOf(XmlNode node, std::uint32_t space, QByteArrayView local) const;
    XmlNode child(XmlNode parent, std::uint32_t space, QByteArrayView local) const;
    QList<XmlNode> children(XmlNode parent, std::uint32_t space, QByteArrayView local) const;

    Generation documentGeneration;
    // Numbers of namespaces.
    std::uint32_t standardSpace;
    std::uint32_t ownSpace;
    // Most of what is asked of a document begins there.
    mutable XmlNode seenDesign = 0;
    mutable std::optional<std::uint64_t> designSeenAt;
};

} // namespace MorvalenCore
