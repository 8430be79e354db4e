#include "component/XmlTree.h"

#include "component/XmlTag.h"
#include "component/XmlTreeWriter.h"

#include <Qtilities/utf8text.h>

#include <algorithm>

namespace MorvalenCore {

namespace {

QByteArray lineEndOf(const QByteArray &bytes)
{
    const qsizetype feed = bytes.indexOf('\n');
    if (feed > 0 && bytes[feed - 1] == '\r')
        return "\r\n";
    return feed < 0 && bytes.contains('\r') ? "\r" : "\n";
}

bool isDeclaration(QByteArrayView attribute)
{
    return attribute == "xmlns" || attribute.startsWith("xmlns:");
}

} // namespace

XmlTree::XmlTree(QByteArray bytes, XmlIndex index)
    : original(std::move(bytes)),
      lineEnd(lineEndOf(original)),
      elements(std::move(index.elements)),
      names(std::move(index.names)),
      encoding(index.encoding)
{
}

const XmlElement &XmlTree::at(XmlNode node) const
{
    return isNew(node) ? added[node - elements.size()] : elements[node];
}

XmlElement &XmlTree::at(XmlNode node)
{
    return isNew(node) ? added[node - elements.size()] : elements[node];
}

bool XmlTree::isAlive(XmlNode node) const
{
    while (node != root && node != 0)
        node = parent(node);
    return node == root;
}

QByteArrayView XmlTree::originalPart(std::uint32_t from, std::uint32_t to) const
{
    return QByteArrayView(original).sliced(from, to - from);
}

QByteArrayView XmlTree::startTag(XmlNode node) const
{
    return originalPart(at(node).start, at(node).startTagEnd);
}

QByteArrayView XmlTree::originalContent(XmlNode node) const
{
    const XmlElement &element = at(node);
    if (isNew(node) || element.endTagStart == element.end)
        return {};
    return originalPart(element.startTagEnd, element.endTagStart);
}

QByteArrayView XmlTree::content(XmlNode node) const
{
    const auto edit = edits.constFind(node);
    return edit != edits.cend() && edit->content ? QByteArrayView(*edit->content)
                                                 : originalContent(node);
}

QString XmlTree::text(XmlNode node) const
{
    return XmlText::decodeContent(content(node), encoding);
}

bool XmlTree::isEmpty(XmlNode node) const { return first(node) == 0 && text(node).isEmpty(); }

bool XmlTree::cameEmpty(XmlNode node) const
{
    return !isNew(node) && XmlText::isBlank(originalContent(node));
}

bool XmlTree::hadElements(XmlNode node) const
{
    const XmlNode inside = node + 1;
    return inside < elements.size() && elements[inside].start < elements[node].end;
}

// Attribute names in the standard's older generations carry the prefix of the element's
// namespace, in the newer ones none.
bool XmlTree::matches(XmlNode node, QByteArrayView attribute, QByteArrayView local) const
{
    if (!attribute.endsWith(local))
        return false;
    if (attribute.size() == local.size())
        return true;
    const qsizetype colon = attribute.size() - local.size() - 1;
    return attribute[colon] == ':' && !isDeclaration(attribute)
        && names.lookUp(name(node).scope, attribute.first(colon)) == name(node).space;
}

std::optional<QByteArrayView> XmlTree::originalAttribute(XmlNode node, QByteArrayView local) const
{
    if (isNew(node))
        return {};
    const XmlTag tag(startTag(node));
    for (const XmlTag::Attribute &attribute : tag.attributes()) {
        if (matches(node, attribute.name, local))
            return attribute.value;
    }
    return {};
}

const XmlTree::Attribute *XmlTree::editedAttribute(XmlNode node, QByteArrayView local) const
{
    const auto edit = edits.constFind(node);
    if (edit == edits.cend())
        return nullptr;
    const auto found = std::find_if(edit->attributes.begin(), edit->attributes.end(),
                                    [&](const Attribute &a) { return a.local == local; });
    return found == edit->attributes.end() ? nullptr : &*found;
}

std::optional<QString> XmlTree::attribute(XmlNode node, QByteArrayView local) const
{
    std::optional<QByteArrayView> value;
    if (const Attribute *edited = editedAttribute(node, local))
        value = edited->value ? std::optional<QByteArrayView>(*edited->value) : std::nullopt;
    else
        value = originalAttribute(node, local);
    return value ? std::optional(XmlText::decodeAttribute(*value, encoding)) : std::nullopt;
}

bool XmlTree::hasAttributes(XmlNode node) const
{
    const auto edit = edits.constFind(node);
    if (edit != edits.cend()
        && std::any_of(edit->attributes.begin(), edit->attributes.end(),
                       [](const Attribute &a) { return a.value && !isDeclaration(a.local); }))
        return true;
    if (isNew(node))
        return false;
    const XmlTag tag(startTag(node));
    return std::any_of(tag.attributes().begin(), tag.attributes().end(), [&](const auto &a) {
        if (isDeclaration(a.name))
            return false;
        const Attribute *edited = editedAttribute(node, a.name.sliced(a.name.indexOf(':') + 1));
        return edited == nullptr || edited->value.has_value();
    });
}

void XmlTree::setText(XmlNode node, const QString &text)
{
    if (first(node) == 0 && this->text(node) == text)
        return;
    while (first(node) != 0)
        remove(first(node));
    Edit &edit = edits[node];
    edit.hasNewChildren = false;
    const bool asItWas = !isNew(node) && !hadElements(node)
        && XmlText::decodeContent(originalContent(node), encoding) == text;
    if (asItWas)
        edit.content.reset();
    else
        edit.content = XmlText::encodeContent(text, encoding, lineEnd);
    dropIfNothing(node);
    ++edition;
}

void XmlTree::setAttribute(XmlNode node, QByteArrayView local, const std::optional<QString> &value)
{
    if (attribute(node, local) == value)
        return;
    Edit &edit = edits[node];
    std::erase_if(edit.attributes, [&](const Attribute &a) { return a.local == local; });
    const auto was = originalAttribute(node, local);
    const auto wasValue =
        was ? std::optional(XmlText::decodeAttribute(*was, encoding)) : std::nullopt;
    if (wasValue != value) {
        Attribute attribute {local.toByteArray(), std::nullopt};
        if (value)
            attribute.value = XmlText::encodeAttribute(*value, encoding);
        edit.attributes.push_back(std::move(attribute));
    }
    dropIfNothing(node);
    ++edition;
}

XmlNode XmlTree::insert(XmlNode parent, XmlNode after, QByteArrayView local, QByteArrayView prefix)
{
    const XmlName probe {0, 0, prefix.toByteArray(), local.toByteArray()};
    return link(parent, after, names.name(name(parent).scope, probe.qualified()));
}

XmlNode XmlTree::insertDeclaring(XmlNode parent, XmlNode after, QByteArrayView local,
                                 QByteArrayView prefix, std::uint32_t space)
{
    const QByteArray uri = names.uri(space);
    const auto scope = names.declare(name(parent).scope, prefix, uri);
    const XmlName probe {0, 0, prefix.toByteArray(), local.toByteArray()};
    const XmlNode node = link(parent, after, names.name(scope, probe.qualified()));
    const QByteArray declaration = prefix.isEmpty() ? "xmlns" : "xmlns:" + probe.prefix;
    edits[node].attributes.push_back(
        {declaration, XmlText::encodeAttribute(Qtilities::Core::textOfUtf8(uri), encoding)});
    return node;
}

XmlNode XmlTree::link(XmlNode parent, XmlNode after, std::uint32_t name)
{
    const auto node = static_cast<XmlNode>(elements.size() + added.size());
    XmlElement element;
    element.name = name;
    element.parent = parent;
    element.previous = after;
    element.next = after != 0 ? next(after) : first(parent);
    (after != 0 ? at(after).next : at(parent).first) = node;
    (element.next != 0 ? at(element.next).previous : at(parent).last) = node;
    added.push_back(element);
    if (!isNew(parent))
        edits[parent].hasNewChildren = true;
    ++edition;
    return node;
}

void XmlTree::remove(XmlNode node)
{
    forgetEdits(node);
    XmlElement &element = at(node);
    (element.previous != 0 ? at(element.previous).next : at(element.parent).first) = element.next;
    (element.next != 0 ? at(element.next).previous : at(element.parent).last) = element.previous;
    element.parent = element.previous = element.next = 0;
    if (!isNew(node))
        removed.push_back(node);
    ++edition;
}

QByteArray XmlTree::bytes() const
{
    // Copying shares the bytes.
    return edits.isEmpty() && removed.empty() ? original : XmlTreeWriter(*this).write();
}

// Of the node and everything in it, without recursion.
void XmlTree::forgetEdits(XmlNode node)
{
    for (XmlNode at = node;;) {
        edits.remove(at);
        if (first(at) != 0) {
            at = first(at);
            continue;
        }
        while (at != node && next(at) == 0)
            at = parent(at);
        if (at == node)
            return;
        at = next(at);
    }
}

void XmlTree::dropIfNothing(XmlNode node)
{
    const auto edit = edits.find(node);
    if (edit->isNothing())
        edits.erase(edit);
}

} // namespace MorvalenCore
