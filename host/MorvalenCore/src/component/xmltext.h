#pragma once

#include <Qtilities/Status.h>

#include <QByteArray>
#include <QString>

namespace MorvalenCore {

// The encodings of documents that are read and written.
enum class XmlEncoding { Utf8, Latin1, Ascii };

// Texts on their way between QString and the bytes of a document. Blanks at the ends of an
// element's text belong to the layout, unless they are written as character references: so that
// every text comes back as it went in, the encoders write blanks at the ends, carriage returns
// and whatever the encoding lacks as references.
namespace XmlText {

// Whether XML can carry the text; a failure says which character it cannot.
Qtilities::Core::Status checkCarried(QStringView text);

// The text directly in an element (not in those inside it), given all bytes between its tags.
QString decodeContent(QByteArrayView content, XmlEncoding encoding);

// The value of an attribute, given the bytes between its quotes.
QString decodeAttribute(QByteArrayView value, XmlEncoding encoding);

// lineEnd is what the document has for a line feed.
QByteArray encodeContent(QStringView text, XmlEncoding encoding, QByteArrayView lineEnd);

// Fits between quotes of both kinds.
QByteArray encodeAttribute(QStringView text, XmlEncoding encoding);

constexpr bool isBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\t' || character == '\r';
}
bool isBlank(QByteArrayView bytes);

} // namespace XmlText
} // namespace MorvalenCore
