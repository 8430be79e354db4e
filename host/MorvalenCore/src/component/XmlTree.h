#pragma once

#include "component/XmlIndex.h"

#include <QHash>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace MorvalenCore {

// An element of an XmlTree; 0 is none. Numbers are never given out twice.
using XmlNode = std::uint32_t;

// An XML document that can be edited without rewriting what nobody touched: the bytes that were
// read, the index of their elements, and the edits beside them. All queries see the edits. Nodes
// stay valid whatever is edited; what is removed stays removed.
class XmlTree
{
public:
    // index is that of the bytes, and valid.
    XmlTree(QByteArray bytes, XmlIndex index);

    static constexpr XmlNode root = 1;

    // Family; 0 where there is none. Elements inside ones that were not indexed are not seen.
    XmlNode parent(XmlNode node) const { return at(node).parent; }
    XmlNode first(XmlNode node) const { return at(node).first; }
    XmlNode last(XmlNode node) const { return at(node).last; }
    XmlNode next(XmlNode node) const { return at(node).next; }
    XmlNode previous(XmlNode node) const { return at(node).previous; }
    // Whether the node was added, not read.
    bool isNew(XmlNode node) const { return node >= elements.size(); }
    // Whether the node is one and neither it nor anything around it was removed.
    bool isAlive(XmlNode node) const;

    const XmlName &name(XmlNode node) const { return names.at(at(node).name); }
    // For the meaning of numbers in an XmlName, and to make namespaces known.
    XmlNames &nameTable() { return names; }
    const XmlNames &nameTable() const { return names; }

    // The text directly in the element, without blanks at its ends.
    QString text(XmlNode node) const;
    // An attribute in no namespace or in that of the element.
    std::optional<QString> attribute(XmlNode node, QByteArrayView local) const;
    // Whether there are attributes other than namespace declarations.
    bool hasAttributes(XmlNode node) const;
    // Whether there are neither elements nor a text between the tags; comments do not count.
    bool isEmpty(XmlNode node) const;
    // Whether there was nothing between the tags before any edit; false for a new node.
    bool cameEmpty(XmlNode node) const;

    // Texts are ones that XmlText::checkCarried() lets pass. Setting what is there is no edit;
    // setting what was there first takes the edit back.

    // Replaces all that is between the tags, elements too.
    void setText(XmlNode node, const QString &text);
    // No value removes the attribute.
    void setAttribute(XmlNode node, QByteArrayView local, const std::optional<QString> &value);
    // Adds an element as the next one behind a child of the parent, as the first one for 0. The
    // prefix means what it does in the parent; or the new element declares it.
    XmlNode insert(XmlNode parent, XmlNode after, QByteArrayView local, QByteArrayView prefix);
    XmlNode insertDeclaring(XmlNode parent, XmlNode after, QByteArrayView local,
                            QByteArrayView prefix, std::uint32_t space);
    // Removes the element, all in it, and the line it stood on if it stood alone.
    void remove(XmlNode node);
    // Adds a copy of an element, with all in it, behind a child of another parent. What is opaque
    // is copied as bytes, and its elements are not seen. 0 when there is more between the others
    // than blanks, or prefixes mean something else there.
    using IsOpaque = std::function<bool(XmlNode)>;
    XmlNode copy(XmlNode node, XmlNode parent, XmlNode after, const IsOpaque &isOpaque);
    // Counts the copies.
    std::uint64_t copies() const { return copyCount; }

    // What was removed, in order, and where it was. Whatever is removed can be put back, with its
    // edits; its parent must be there.
    struct Place
    {
        XmlNode node;
        XmlNode parent;
    };
    std::size_t removals() const { return removalLog.size(); }
    Place removal(std::size_t number) const;
    void putBack(std::size_t number);

    // Counts edits.
    std::uint64_t revision() const { return edition; }

    // The document with all edits.
    QByteArray bytes() const;

    const QByteArray &originalBytes() const { return original; }
    // Where a node that was read starts; 0 for a new one.
    qsizetype offset(XmlNode node) const { return isNew(node) ? 0 : at(node).start; }
    qsizetype endOffset(XmlNode node) const { return isNew(node) ? 0 : at(node).end; }

private:
    friend class XmlTreeWriter;

    struct Attribute
    {
        QByteArray local;
        // Encoded; no value in one that was removed.
        std::optional<QByteArray> value;
    };

    // What differs from the bytes that were read; everything, for a new node.
    struct Edit
    {
        // Encoded.
        std::optional<QByteArray> content;
        std::vector<Attribute> attributes;
        // Whether elements were added.
        bool hasNewChildren = false;

        bool isNothing() const { return !content && attributes.empty() && !hasNewChildren; }
    };

    struct Removal
    {
        Place place;
        XmlNode previous = 0;
        QHash<XmlNode, Edit> edits;
    };

    const XmlElement &at(XmlNode node) const
    {
        return isNew(node) ? added[node - elements.size()] : elements[node];
    }
    XmlElement &at(XmlNode node)
    {
        return isNew(node) ? added[node - elements.size()] : elements[node];
    }
    QByteArrayView originalPart(std::uint32_t from, std::uint32_t to) const;
    QByteArrayView startTag(XmlNode node) const;
    QByteArrayView originalContent(XmlNode node) const;
    QByteArrayView content(XmlNode node) const;
    bool hadElements(XmlNode node) const;
    bool matches(XmlNode node, QByteArrayView attribute, QByteArrayView local) const;
    std::optional<QByteArrayView> originalAttribute(XmlNode node, QByteArrayView local) const;
    const Attribute *editedAttribute(XmlNode node, QByteArrayView local) const;
    XmlNode link(XmlNode parent, XmlNode after, std::uint32_t name);
    void relink(XmlNode node, XmlNode parent, XmlNode after);
    XmlNode placeAmong(XmlNode parent, XmlNode node, XmlNode previous) const;
    bool isCopyable(XmlNode node, const IsOpaque &isOpaque) const;
    XmlNode copyInto(XmlNode node, XmlNode parent, XmlNode after, const IsOpaque &isOpaque);
    std::vector<Attribute> allAttributes(XmlNode node) const;
    QHash<XmlNode, Edit> takeEdits(XmlNode node);
    void dropIfNothing(XmlNode node);

    QByteArray original;
    QByteArray lineEnd;
    std::vector<XmlElement> elements;
    // Numbered on from the end of elements.
    std::vector<XmlElement> added;
    XmlNames names;
    XmlEncoding encoding;
    QHash<XmlNode, Edit> edits;
    // Only nodes that were read; there may be removed ones inside others.
    std::vector<XmlNode> removed;
    std::vector<Removal> removalLog;
    std::uint64_t edition = 0;
    std::uint64_t copyCount = 0;
};

} // namespace MorvalenCore
