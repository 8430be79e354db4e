#pragma once

#include "component/XmlTree.h"

#include <QByteArray>
#include <QHash>
#include <QList>

namespace MorvalenCore {

class ComponentTree;

// Which parameters of a component something else in its document refers to by their ids: in an
// attribute or in a text, as part of an expression or alone. Names, texts for people, and our own
// extensions refer to nothing. Found in one pass over the document; what files and parameters that
// were removed since referred to no longer counts.
class IdReferences
{
public:
    explicit IdReferences(const ComponentTree &tree);

    bool isReferenced(XmlNode parameter) const;

    // To be told when the value of a parameter changes.
    void valueChanged(XmlNode parameter, const QString &before, const QString &after);

private:
    friend class IdScanner;

    void count(QByteArrayView words, XmlNode user, int by);
    void countWord(QByteArrayView word, XmlNode user, int by);
    void countId(QByteArrayView id, XmlNode user, int by);

    const ComponentTree &tree;
    QHash<XmlNode, QByteArray> ids;
    qsizetype longestId = 0;
    // By id, how often the files and parameters use it; those at 0 are other places.
    QHash<QByteArray, QHash<XmlNode, int>> users;
};

} // namespace MorvalenCore
