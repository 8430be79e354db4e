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
    const QByteArrayView bytes = startTag(node);
    // Most elements have no attributes.
    if (!bytes.contains('='))
        return {};
    const XmlTag tag(bytes);
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
    const auto found =
        std::find_if(edit->attributes.begin(), edit->attributes.end(),
                     [&](const Attribute &a) { return matches(node, a.local, local); });
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
    std::erase_if(edit.attributes,
                  [&](const Attribute &a) { return matches(node, a.local, local); });
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
    added.push_back(element);
    relink(node, parent, after);
    return node;
}

void XmlTree::relink(XmlNode node, XmlNode parent, XmlNode after)
{
    const XmlNode behind = after != 0 ? next(after) : first(parent);
    at(node).parent = parent;
    at(node).previous = after;
    at(node).next = behind;
    (after != 0 ? at(after).next : at(parent).first) = node;
    (behind != 0 ? at(behind).previous : at(parent).last) = node;
    if (isNew(node) && !isNew(parent))
        edits[parent].hasNewChildren = true;
    ++edition;
}

void XmlTree::remove(XmlNode node)
{
    XmlElement &element = at(node);
    removalLog.push_back({{node, element.parent}, element.previous, takeEdits(node)});
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

XmlTree::Place XmlTree::removal(std::size_t number) const { return removalLog[number].place; }

void XmlTree::putBack(std::size_t number)
{
    const Removal &removal = removalLog[number];
    const auto [node, parent] = removal.place;
    relink(node, parent, placeAmong(parent, node, removal.previous));
    std::erase(removed, node);
    for (auto edit = removal.edits.cbegin(); edit != removal.edits.cend(); ++edit)
        edits.insert(edit.key(), *edit);
}

// Where the bytes have it. A new one comes behind the child that it stood behind and, since what
// stood between them may be back, behind those that are older.
XmlNode XmlTree::placeAmong(XmlNode parent, XmlNode node, XmlNode previous) const
{
    if (isNew(node)) {
        XmlNode after = previous;
        if (previous != 0 && this->parent(previous) != parent)
            after = last(parent);
        const auto behind = [&] { return after != 0 ? next(after) : first(parent); };
        while (behind() != 0 && isNew(behind()) && behind() < node)
            after = behind();
        return after;
    }
    XmlNode after = 0;
    for (XmlNode child = first(parent); child != 0; child = next(child)) {
        const bool isBefore = isNew(child) ? child == previous : at(child).start < at(node).start;
        if (isBefore)
            after = child;
    }
    return after;
}

XmlNode XmlTree::copy(XmlNode node, XmlNode parent, XmlNode after, const IsOpaque &isOpaque)
{
    if (name(this->parent(node)).scope != name(parent).scope || !isCopyable(node, isOpaque))
        return 0;
    ++copyCount;
    return copyInto(node, parent, after, isOpaque);
}

// Whether blanks alone stand between the elements in it.
bool XmlTree::isCopyable(XmlNode node, const IsOpaque &isOpaque) const
{
    if (first(node) == 0 || isOpaque(node))
        return true;
    if (!isNew(node) && hadElements(node)) {
        std::uint32_t done = at(node).startTagEnd;
        for (XmlNode inside = node + 1;
             inside < elements.size() && elements[inside].start < at(node).end; ++inside) {
            if (elements[inside].start < done)
                continue;
            if (!XmlText::isBlank(originalPart(done, elements[inside].start)))
                return false;
            done = elements[inside].end;
        }
        if (!XmlText::isBlank(originalPart(done, at(node).endTagStart)))
            return false;
    } else if (!XmlText::isBlank(content(node))) {
        return false;
    }
    for (XmlNode child = first(node); child != 0; child = next(child)) {
        if (!isCopyable(child, isOpaque))
            return false;
    }
    return true;
}

// What was read and is no longer there is left out.
std::vector<XmlTree::Attribute> XmlTree::allAttributes(XmlNode node) const
{
    std::vector<Attribute> all;
    const auto edit = edits.constFind(node);
    if (!isNew(node)) {
        const XmlTag tag(startTag(node));
        for (const XmlTag::Attribute &read : tag.attributes()) {
            const bool isEdited = edit != edits.cend()
                && std::any_of(edit->attributes.begin(), edit->attributes.end(),
                               [&](const Attribute &a) {
                                   return matches(node, read.name, a.local);
                               });
            if (!isEdited)
                all.push_back(
                    {read.name.toByteArray(), read.value.toByteArray().replace('"', "&quot;")});
        }
    }
    if (edit != edits.cend()) {
        for (const Attribute &attribute : edit->attributes) {
            if (attribute.value)
                all.push_back(attribute);
        }
    }
    return all;
}

// Recursive as the writer is: what is indexed is not nested deep.
XmlNode XmlTree::copyInto(XmlNode node, XmlNode parent, XmlNode after, const IsOpaque &isOpaque)
{
    const bool isLeaf = first(node) == 0 || isOpaque(node);
    Edit edit;
    edit.attributes = allAttributes(node);
    if (isLeaf && !content(node).isEmpty())
        edit.content = content(node).toByteArray();
    const XmlNode made = link(parent, after, at(node).name);
    if (!edit.isNothing())
        edits.insert(made, edit);
    XmlNode behind = 0;
    for (XmlNode child = isLeaf ? 0 : first(node); child != 0; child = next(child))
        behind = copyInto(child, made, behind, isOpaque);
    return made;
}

// Of the node and everything in it, without recursion.
QHash<XmlNode, XmlTree::Edit> XmlTree::takeEdits(XmlNode node)
{
    QHash<XmlNode, Edit> taken;
    for (XmlNode at = node;;) {
        if (const auto edit = edits.find(at); edit != edits.end()) {
            taken.insert(at, *edit);
            edits.erase(edit);
        }
        if (first(at) != 0) {
            at = first(at);
            continue;
        }
        while (at != node && next(at) == 0)
            at = parent(at);
        if (at == node)
            return taken;
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
