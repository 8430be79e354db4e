#pragma once

#include "component/XmlTree.h"

#include <vector>

namespace MorvalenCore {

class XmlTag;

// Writes a tree with its edits: gathers the edits as replacements of ranges of the original bytes
// and applies them in one pass. New elements take indentation and line ends of their neighbours.
// Used once.
class XmlTreeWriter
{
public:
    explicit XmlTreeWriter(const XmlTree &tree);

    QByteArray write();

private:
    struct Splice
    {
        qsizetype from;
        qsizetype to;
        QByteArray text;
    };

    void gather();
    void gatherRemoval(XmlNode node);
    void gatherAttributes(XmlNode node, const XmlTree::Edit &edit);
    void gatherContent(XmlNode node, const XmlTree::Edit &edit);
    void gatherNewChildren(XmlNode node);
    void fill(XmlNode node, QByteArray content);
    QByteArray apply();

    // What stands in front of an element that was read: line end and indentation, or blanks.
    QByteArray separatorOf(XmlNode node) const;
    // What stands in front of a new element in a parent that was read.
    QByteArray separatorIn(XmlNode parent, XmlNode previous, XmlNode next) const;
    qsizetype lineTail(qsizetype from) const;
    QByteArray newChildren(XmlNode parent, const QByteArray &separator,
                           const QByteArray &unit) const;
    void writeNew(XmlNode node, const QByteArray &separator, const QByteArray &unit,
                  QByteArray &out) const;
    QByteArray unitOf(const QByteArray &separator, XmlNode parent) const;

    const XmlTree &tree;
    const QByteArray &original;
    std::vector<Splice> splices;
};

} // namespace MorvalenCore
