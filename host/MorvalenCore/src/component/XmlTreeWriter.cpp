#include "component/XmlTreeWriter.h"

#include "component/XmlTag.h"
#include "component/xmltext.h"

#include <algorithm>
#include <tuple>
#include <vector>

namespace MorvalenCore {

XmlTreeWriter::XmlTreeWriter(const XmlTree &editedTree)
    : tree(editedTree),
      layout(editedTree),
      original(editedTree.original)
{
}

QByteArray XmlTreeWriter::write()
{
    gather();
    return apply();
}

void XmlTreeWriter::gather()
{
    splices.reserve(tree.removed.size() + size_t(tree.edits.size()));
    for (const XmlNode node : tree.removed)
        gatherRemoval(node);
    for (auto edit = tree.edits.cbegin(); edit != tree.edits.cend(); ++edit) {
        const XmlNode node = edit.key();
        if (tree.isNew(node) || !tree.isAlive(node))
            continue;
        gatherAttributes(node, *edit);
        if (edit->content)
            gatherContent(node, *edit);
        else if (edit->hasNewChildren)
            gatherNewChildren(node);
    }
}

QByteArray XmlTreeWriter::apply()
{
    qsizetype size = original.size();
    std::vector<const Splice *> ordered;
    ordered.reserve(splices.size());
    for (const Splice &splice : splices) {
        size += splice.text.size();
        ordered.push_back(&splice);
    }
    // Insertions come before replacements that start at the same place, in the order in which they
    // were gathered.
    std::sort(ordered.begin(), ordered.end(), [](const Splice *a, const Splice *b) {
        return std::tuple(a->from, a->from != a->to, a) < std::tuple(b->from, b->from != b->to, b);
    });
    QByteArray out;
    out.reserve(size);
    qsizetype done = 0;
    for (const Splice *splice : ordered) {
        // Within something that was removed.
        if (splice->to < done || (splice->to == done && splice->from < done))
            continue;
        const qsizetype from = std::max(splice->from, done);
        out += QByteArrayView(original).sliced(done, from - done);
        out += splice->text;
        done = splice->to;
    }
    out += QByteArrayView(original).sliced(done);
    return out;
}

void XmlTreeWriter::gatherRemoval(XmlNode node)
{
    const XmlElement &element = tree.at(node);
    qsizetype from = element.start;
    qsizetype to = element.end;
    const QByteArray separator = layout.separatorOf(node);
    qsizetype rest = to;
    while (rest < original.size() && layout.isIndent(original[rest]))
        ++rest;
    const bool endsLine = rest == original.size() || layout.isLineEnd(original[rest])
        || QByteArrayView(original).sliced(rest).startsWith("</");
    if (!layout.breaksLine(separator) || endsLine)
        from -= separator.size();
    else
        to = rest;
    splices.push_back({from, to, {}});
}

void XmlTreeWriter::gatherAttributes(XmlNode node, const XmlTree::Edit &edit)
{
    if (edit.attributes.empty())
        return;
    const qsizetype start = tree.at(node).start;
    const XmlTag tag(tree.startTag(node));
    for (const XmlTree::Attribute &attribute : edit.attributes) {
        const auto &old = tag.attributes();
        const auto found = std::find_if(old.begin(), old.end(), [&](const auto &a) {
            return tree.matches(node, a.name, attribute.local);
        });
        if (found == old.end()) {
            const qsizetype behind = start + tag.end();
            splices.push_back(
                {behind, behind, ' ' + attribute.local + "=\"" + *attribute.value + '"'});
        } else if (attribute.value) {
            const qsizetype from = start + found->valueFrom;
            splices.push_back({from, from + found->value.size(), *attribute.value});
        } else {
            splices.push_back({start + found->from, start + found->to, {}});
        }
    }
}

// Replaces what is between the tags, and makes two tags of one.
void XmlTreeWriter::fill(XmlNode node, QByteArray content)
{
    const XmlElement &element = tree.at(node);
    if (element.endTagStart != element.end) {
        splices.push_back({element.startTagEnd, element.endTagStart, std::move(content)});
        return;
    }
    if (content.isEmpty())
        return;
    const XmlTag tag(tree.startTag(node));
    content = '>' + content + "</" + tag.qualifiedName().toByteArray() + '>';
    splices.push_back({element.start + tag.end(), element.end, std::move(content)});
}

void XmlTreeWriter::gatherContent(XmlNode node, const XmlTree::Edit &edit)
{
    QByteArray content = *edit.content;
    if (tree.first(node) != 0) {
        const QByteArray separator = layout.separatorOf(node);
        const QByteArray unit = layout.unitOf(separator, tree.parent(node));
        content +=
            newChildren(node, layout.inside(separator, unit), unit) + layout.closing(separator);
    }
    fill(node, std::move(content));
}

void XmlTreeWriter::gatherNewChildren(XmlNode node)
{
    if (tree.first(node) == 0)
        return;
    if (tree.hadElements(node))
        gatherAmongElements(node);
    else
        gatherIntoContent(node);
}

// Neighbours that are new come in one piece, behind the old one in front of them.
void XmlTreeWriter::gatherAmongElements(XmlNode node)
{
    QByteArray separator;
    QByteArray text;
    qsizetype place = -1;
    XmlNode previous = 0;
    for (XmlNode child = tree.first(node); child != 0; child = tree.next(child)) {
        if (!tree.isNew(child)) {
            if (place >= 0)
                splices.push_back({place, place, text});
            place = -1;
            text.clear();
            previous = child;
            continue;
        }
        if (place < 0) {
            place =
                layout.lineTail(previous != 0 ? tree.at(previous).end : tree.at(node).startTagEnd);
            separator = layout.separatorIn(node, previous, child);
        }
        writeNew(child, separator, layout.unitOf(separator, node), text);
    }
    if (place >= 0)
        splices.push_back({place, place, text});
}

void XmlTreeWriter::gatherIntoContent(XmlNode node)
{
    const QByteArray outer = layout.separatorOf(node);
    const QByteArray unit = layout.unitOf(outer, tree.parent(node));
    QByteArray text = newChildren(node, layout.inside(outer, unit), unit);
    if (XmlText::isBlank(tree.originalContent(node))) {
        fill(node, text + layout.closing(outer));
        return;
    }
    // Comments or text: behind them.
    const qsizetype end = tree.at(node).endTagStart;
    qsizetype place = end;
    while (XmlText::isBlank(original[place - 1]))
        --place;
    const bool broken = layout.breaksLine(QByteArrayView(original).sliced(place, end - place));
    splices.push_back({place, place, broken ? text : text + layout.closing(outer)});
}

QByteArray XmlTreeWriter::newChildren(XmlNode parent, const QByteArray &separator,
                                      const QByteArray &unit) const
{
    QByteArray text;
    writeChildren(parent, separator, unit, text);
    return text;
}

void XmlTreeWriter::writeChildren(XmlNode parent, const QByteArray &separator,
                                  const QByteArray &unit, QByteArray &out) const
{
    for (XmlNode child = tree.first(parent); child != 0; child = tree.next(child))
        writeNew(child, separator, unit, out);
}

// Recursive, but only as deep as elements of our own making are nested. Everything goes straight to
// its place: many thousands of elements may be new.
void XmlTreeWriter::writeNew(XmlNode node, const QByteArray &separator, const QByteArray &unit,
                             QByteArray &out) const
{
    const XmlName &name = tree.name(node);
    out += separator;
    out += '<';
    name.appendQualified(out);
    const auto edit = tree.edits.constFind(node);
    const bool hasContent = edit != tree.edits.cend() && edit->content && !edit->content->isEmpty();
    if (edit != tree.edits.cend()) {
        for (const XmlTree::Attribute &attribute : edit->attributes) {
            out += ' ';
            out += attribute.local;
            out += "=\"";
            out += *attribute.value;
            out += '"';
        }
    }
    if (!hasContent && tree.first(node) == 0) {
        out += "/>";
        return;
    }
    out += '>';
    if (hasContent)
        out += *edit->content;
    if (tree.first(node) != 0) {
        writeChildren(node, layout.inside(separator, unit), unit, out);
        out += layout.closing(separator);
    }
    out += "</";
    name.appendQualified(out);
    out += '>';
}

} // namespace MorvalenCore
