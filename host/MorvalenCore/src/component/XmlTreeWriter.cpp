#include "component/XmlTreeWriter.h"

#include "component/XmlTag.h"
#include "component/xmltext.h"

#include <algorithm>

namespace MorvalenCore {

namespace {

bool isLineEnd(char character) { return character == '\n' || character == '\r'; }

bool isIndent(char character) { return character == ' ' || character == '\t'; }

// The blanks behind the last line end of a separator.
QByteArrayView indentOf(QByteArrayView separator)
{
    qsizetype from = separator.size();
    while (from > 0 && isIndent(separator[from - 1]))
        --from;
    return separator.sliced(from);
}

bool breaksLine(QByteArrayView separator)
{
    return std::any_of(separator.begin(), separator.end(), isLineEnd);
}

// The separator of the children of an element that stands behind this one.
QByteArray inside(const QByteArray &separator, const QByteArray &unit)
{
    return breaksLine(separator) ? separator + unit : QByteArray();
}

QByteArray closing(const QByteArray &separator)
{
    return breaksLine(separator) ? separator : QByteArray();
}

} // namespace

XmlTreeWriter::XmlTreeWriter(const XmlTree &editedTree)
    : tree(editedTree),
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
    // Insertions come before replacements that start at the same place.
    std::stable_sort(splices.begin(), splices.end(), [](const Splice &a, const Splice &b) {
        return a.from != b.from ? a.from < b.from : (a.from == a.to) > (b.from == b.to);
    });
    qsizetype size = original.size();
    for (const Splice &splice : splices)
        size += splice.text.size();
    QByteArray out;
    out.reserve(size);
    qsizetype done = 0;
    for (const Splice &splice : splices) {
        // Within something that was removed.
        if (splice.to < done || (splice.to == done && splice.from < done))
            continue;
        const qsizetype from = std::max(splice.from, done);
        out += QByteArrayView(original).sliced(done, from - done);
        out += splice.text;
        done = splice.to;
    }
    out += QByteArrayView(original).sliced(done);
    return out;
}

void XmlTreeWriter::gatherRemoval(XmlNode node)
{
    const XmlElement &element = tree.at(node);
    qsizetype from = element.start;
    qsizetype to = element.end;
    const QByteArray separator = separatorOf(node);
    qsizetype rest = to;
    while (rest < original.size() && isIndent(original[rest]))
        ++rest;
    const bool endsLine = rest == original.size() || isLineEnd(original[rest])
        || QByteArrayView(original).sliced(rest).startsWith("</");
    if (!breaksLine(separator) || endsLine)
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
        const QByteArray separator = separatorOf(node);
        const QByteArray unit = unitOf(separator, tree.parent(node));
        content += newChildren(node, inside(separator, unit), unit) + closing(separator);
    }
    fill(node, std::move(content));
}

void XmlTreeWriter::gatherNewChildren(XmlNode node)
{
    if (tree.first(node) == 0)
        return;
    const XmlElement &element = tree.at(node);
    if (tree.hadElements(node)) {
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
                place = lineTail(previous != 0 ? tree.at(previous).end : element.startTagEnd);
                separator = separatorIn(node, previous, child);
            }
            writeNew(child, separator, unitOf(separator, node), text);
        }
        if (place >= 0)
            splices.push_back({place, place, text});
        return;
    }
    const QByteArray outer = separatorOf(node);
    const QByteArray unit = unitOf(outer, tree.parent(node));
    QByteArray text = newChildren(node, inside(outer, unit), unit);
    if (XmlText::isBlank(tree.originalContent(node))) {
        fill(node, text + closing(outer));
        return;
    }
    // Comments or text: behind them.
    qsizetype place = element.endTagStart;
    while (XmlText::isBlank(original[place - 1]))
        --place;
    const bool broken =
        breaksLine(QByteArrayView(original).sliced(place, element.endTagStart - place));
    splices.push_back({place, place, broken ? text : text + closing(outer)});
}

QByteArray XmlTreeWriter::newChildren(XmlNode parent, const QByteArray &separator,
                                      const QByteArray &unit) const
{
    QByteArray text;
    for (XmlNode child = tree.first(parent); child != 0; child = tree.next(child))
        writeNew(child, separator, unit, text);
    return text;
}

// Recursive, but only as deep as elements of our own making are nested.
void XmlTreeWriter::writeNew(XmlNode node, const QByteArray &separator, const QByteArray &unit,
                             QByteArray &out) const
{
    const auto edit = tree.edits.constFind(node);
    const QByteArray name = tree.name(node).qualified();
    out += separator + '<' + name;
    QByteArray content;
    if (edit != tree.edits.cend()) {
        for (const XmlTree::Attribute &attribute : edit->attributes)
            out += ' ' + attribute.local + "=\"" + *attribute.value + '"';
        content = edit->content.value_or(QByteArray());
    }
    if (tree.first(node) != 0)
        content += newChildren(node, inside(separator, unit), unit) + closing(separator);
    if (content.isEmpty())
        out += "/>";
    else
        out += '>' + content + "</" + name + '>';
}

QByteArray XmlTreeWriter::separatorOf(XmlNode node) const
{
    const qsizetype start = tree.at(node).start;
    qsizetype from = start;
    while (from > 0 && isIndent(original[from - 1]))
        --from;
    if (from > 0 && isLineEnd(original[from - 1])) {
        --from;
        if (from > 0 && original[from] == '\n' && original[from - 1] == '\r')
            --from;
    }
    return original.mid(from, start - from);
}

QByteArray XmlTreeWriter::separatorIn(XmlNode parent, XmlNode previous, XmlNode next) const
{
    while (next != 0 && tree.isNew(next))
        next = tree.next(next);
    // The first element that was ever in the parent helps when the others are gone.
    QByteArray fallback;
    for (const XmlNode neighbour : {previous, next, parent + 1}) {
        if (neighbour == 0)
            continue;
        QByteArray separator = separatorOf(neighbour);
        if (breaksLine(separator))
            return separator;
        if (fallback.isEmpty())
            fallback = separator;
    }
    return fallback;
}

// By how much the children of an element are indented against it, as its parent's are.
QByteArray XmlTreeWriter::unitOf(const QByteArray &separator, XmlNode parent) const
{
    if (parent == 0)
        return {};
    const QByteArray outer = separatorOf(parent);
    const QByteArrayView outerIndent = indentOf(outer);
    const QByteArrayView indent = indentOf(separator);
    if (!indent.startsWith(outerIndent))
        return "  ";
    return indent.sliced(outerIndent.size()).toByteArray();
}

// Behind a comment on the same line, which belongs to what stands before it.
qsizetype XmlTreeWriter::lineTail(qsizetype from) const
{
    const auto skipIndent = [this](qsizetype at) {
        while (at < original.size() && isIndent(original[at]))
            ++at;
        return at;
    };
    const qsizetype comment = skipIndent(from);
    if (!QByteArrayView(original).sliced(comment).startsWith("<!--"))
        return from;
    const qsizetype end = original.indexOf("-->", comment + 4) + 3;
    const qsizetype rest = skipIndent(end);
    const bool wholeLine = rest < original.size() && isLineEnd(original[rest])
        && !breaksLine(QByteArrayView(original).sliced(comment, end - comment));
    return wholeLine ? end : from;
}

} // namespace MorvalenCore
