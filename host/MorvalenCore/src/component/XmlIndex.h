#pragma once

#include "component/XmlNames.h"
#include "component/xmltext.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace MorvalenCore {

// One element of a document: where it lies and what is around it. Byte offsets; elements by their
// number in the index, 0 for none. Kept small, for a document may have millions.
struct XmlElement
{
    std::uint32_t start = 0;
    std::uint32_t startTagEnd = 0;
    // Equal to end in an element that is closed by its own start tag.
    std::uint32_t endTagStart = 0;
    std::uint32_t end = 0;

    std::uint32_t name = 0;
    std::uint32_t parent = 0;
    std::uint32_t previous = 0;
    std::uint32_t next = 0;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};

// What an XML document may have at most; more is refused before it can do harm.
struct XmlLimits
{
    int depth = 256;
    int attributes = 1000;
    // That are indexed; others are not kept.
    size_t elements = 8'000'000;
    // Different ones, and different namespace declarations.
    size_t names = 65'536;
};

// The elements of an XML document by their places in its bytes. Number 1 is the root element,
// the others follow in document order. A value, made by read().
struct XmlIndex
{
    std::vector<XmlElement> elements;
    XmlNames names;
    XmlEncoding encoding = XmlEncoding::Utf8;

    // The first prefix that is used and not declared, anywhere in the document, and its line.
    QString undeclaredPrefix;
    int undeclaredLine = 0;

    // Empty when the document was read. One sentence.
    QString error;
    // The line of the error, from 1.
    int line = 0;

    bool isValid() const { return error.isEmpty(); }

    // Asked once for each element on the two levels below the root (level 1 and 2): whether the
    // elements inside it are wanted. Others are checked but not indexed.
    using Wanted = std::function<bool(const XmlNames &names, const XmlName &name, int level)>;

    // Refused are bytes that are not well-formed, document types (before anything in them is
    // looked at), other encodings than UTF-8, ISO-8859-1 and US-ASCII, and what goes beyond the
    // limits. Takes time and memory in proportion to the document, and no stack.
    static XmlIndex read(const QByteArray &bytes, const Wanted &wanted,
                         const XmlLimits &limits = {});

    // The line on which a byte stands, from 1.
    static int lineOf(const QByteArray &bytes, qsizetype offset);
};

} // namespace MorvalenCore
