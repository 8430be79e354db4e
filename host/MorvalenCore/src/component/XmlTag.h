#pragma once

#include <QByteArrayView>
#include <QVarLengthArray>

namespace MorvalenCore {

// A start tag as it stands in a well-formed document, "<" to ">": where its attributes lie.
// Offsets count from the tag's "<".
class XmlTag
{
public:
    struct Attribute
    {
        QByteArrayView name;
        QByteArrayView value;
        // From the blank before the name to behind the closing quote.
        qsizetype from;
        qsizetype to;
        qsizetype valueFrom;
    };

    // Looks into the bytes, which must stay.
    explicit XmlTag(QByteArrayView tag);

    // Most tags have few.
    using Attributes = QVarLengthArray<Attribute, 4>;
    const Attributes &attributes() const { return list; }
    bool isSelfClosing() const;
    // Behind the last attribute, or behind the element's name.
    qsizetype end() const { return endOfLast; }
    QByteArrayView qualifiedName() const { return name; }

private:
    QByteArrayView bytes;
    QByteArrayView name;
    Attributes list;
    qsizetype endOfLast = 0;
};

} // namespace MorvalenCore
