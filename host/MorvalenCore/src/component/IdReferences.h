#pragma once

#include "component/XmlTree.h"

#include <QByteArray>
#include <QHash>
#include <QList>

namespace MorvalenCore {

class ComponentTree;

// Which parameters of a component something else in its document refers to by their ids: in an
// attribute or in a text, as part of an expression or alone. Found in one pass over the document
// as it was read; parameters that were removed since no longer count.
class IdReferences
{
public:
    explicit IdReferences(const ComponentTree &tree);

    bool isReferenced(XmlNode parameter) const;

private:
    friend class IdScanner;

    const ComponentTree &tree;
    QHash<XmlNode, QByteArray> ids;
    // The parameters that use an id; 0 for other places.
    QHash<QByteArray, QList<XmlNode>> users;
};

} // namespace MorvalenCore
