#pragma once

#include "component/XmlLayout.h"
#include "component/XmlTree.h"

#include <vector>

namespace MorvalenCore {

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
    void gatherAmongElements(XmlNode node);
    void gatherIntoContent(XmlNode node);
    void fill(XmlNode node, QByteArray content);
    QByteArray apply();
    QByteArray newChildren(XmlNode parent, const QByteArray &separator,
                           const QByteArray &unit) const;
    void writeChildren(XmlNode parent, const QByteArray &separator, const QByteArray &unit,
                       QByteArray &out) const;
    void writeNew(XmlNode node, const QByteArray &separator, const QByteArray &unit,
                  QByteArray &out) const;

    const XmlTree &tree;
    XmlLayout layout;
    const QByteArray &original;
    std::vector<Splice> splices;
};

} // namespace MorvalenCore
