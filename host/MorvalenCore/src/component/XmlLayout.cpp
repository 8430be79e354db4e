#include "component/XmlLayout.h"

#include <algorithm>

namespace MorvalenCore {

namespace {

// The blanks behind the last line end of a separator.
QByteArrayView indentOf(QByteArrayView separator)
{
    qsizetype from = separator.size();
    while (from > 0 && XmlLayout::isIndent(separator[from - 1]))
        --from;
    return separator.sliced(from);
}

} // namespace

bool XmlLayout::isLineEnd(char character) { return character == '\n' || character == '\r'; }

bool XmlLayout::isIndent(char character) { return character == ' ' || character == '\t'; }

bool XmlLayout::breaksLine(QByteArrayView separator)
{
    return std::any_of(separator.begin(), separator.end(), isLineEnd);
}

QByteArray XmlLayout::inside(const QByteArray &separator, const QByteArray &unit)
{
    return breaksLine(separator) ? separator + unit : QByteArray();
}

QByteArray XmlLayout::closing(const QByteArray &separator)
{
    return breaksLine(separator) ? separator : QByteArray();
}

XmlLayout::XmlLayout(const XmlTree &laidOutTree)
    : tree(laidOutTree),
      original(laidOutTree.originalBytes())
{
}

QByteArray XmlLayout::separatorOf(XmlNode node) const
{
    const qsizetype start = tree.offset(node);
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

QByteArray XmlLayout::separatorIn(XmlNode parent, XmlNode previous, XmlNode next) const
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

QByteArray XmlLayout::unitOf(const QByteArray &separator, XmlNode parent) const
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

qsizetype XmlLayout::lineTail(qsizetype from) const
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
