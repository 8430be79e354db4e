#pragma once

#include <QByteArrayView>

#include <vector>

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

    const std::vector<Attribute> &attributes() const { return list; }
    bool isSelfClosing() const;
    // Behind the last attribute, or behind the element's name.
    qsizetype end() const { return endOfLast; }
    QByteArrayView qualifiedName() const { return name; }

private:
    QByteArrayView bytes;
    QByteArrayView name;
    std::vector<Attribute> list;
    qsizetype endOfLast = 0;
};

} // namespace MorvalenCore
