#pragma once

#include <QByteArrayView>

#include <cstddef>

namespace MorvalenCore {

// A quick look over a document before it is parsed, for what has to be known by then. Says nothing
// certain about documents that are not well-formed or have a document type.
struct XmlScan
{
    // As many elements there are, so that their index need not grow.
    size_t elements = 0;
    // Where an element starts that has more attributes than allowed; -1 for none. The parser
    // would read them all before it could be stopped.
    qsizetype tooManyAttributes = -1;

    static XmlScan over(QByteArrayView bytes, int allowedAttributes);
};

} // namespace MorvalenCore
