#pragma once

#include "component/XmlTree.h"

namespace MorvalenCore {

// How a document is laid out where nobody edited it, so that new elements look like their
// neighbours. What stands in front of an element is its separator: a line end and indentation, or
// only blanks, or nothing.
class XmlLayout
{
public:
    // The tree must stay.
    explicit XmlLayout(const XmlTree &tree);

    // The separator of an element that was read.
    QByteArray separatorOf(XmlNode node) const;

    // The separator of a new element in a parent that was read and had elements, behind an
    // element that was read, or 0, and in front of others.
    QByteArray separatorIn(XmlNode parent, XmlNode previous, XmlNode next) const;

    // By how much an element is indented against its parent, given its separator.
    QByteArray unitOf(const QByteArray &separator, XmlNode parent) const;

    // The place behind what belongs to the element that ends at an offset: a comment on the same
    // line.
    qsizetype lineTail(qsizetype from) const;

    static bool isLineEnd(char character);
    static bool isIndent(char character);
    static bool breaksLine(QByteArrayView separator);

    // The separators of new elements in a new element, and of its end tag, given its own.
    static QByteArray inside(const QByteArray &separator, const QByteArray &unit);
    static QByteArray closing(const QByteArray &separator);

private:
    const XmlTree &tree;
    const QByteArray &original;
};

} // namespace MorvalenCore
