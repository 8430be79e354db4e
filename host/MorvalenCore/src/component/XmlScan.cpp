#include "component/XmlScan.h"

#include <array>

namespace MorvalenCore {

namespace {

// What starts with "<" and is no tag, with its end.
struct OtherMarkup
{
    QByteArrayView start;
    QByteArrayView end;
};

constexpr std::array<OtherMarkup, 3> otherMarkup {{
    {"<!--", "-->"},
    {"<![CDATA[", "]]>"},
    {"<?", "?>"},
}};

// The shortest attribute is five bytes long with the blank before it.
constexpr qsizetype shortestAttribute = 5;

// Of the tag at the head of bytes; an attribute has one equals sign outside of quotes.
int countAttributes(QByteArrayView bytes)
{
    int count = 0;
    char quote = 0;
    for (const char character : bytes) {
        if (quote != 0) {
            if (character == quote)
                quote = 0;
        } else if (character == '"' || character == '\'') {
            quote = character;
        } else if (character == '=') {
            ++count;
        } else if (character == '>') {
            break;
        }
    }
    return count;
}

// Behind the markup at an offset if it is no tag, else the offset.
qsizetype behindOther(QByteArrayView bytes, qsizetype at)
{
    for (const OtherMarkup &other : otherMarkup) {
        if (bytes.sliced(at).startsWith(other.start)) {
            const qsizetype end = bytes.indexOf(other.end, at + other.start.size());
            return end < 0 ? bytes.size() : end + other.end.size();
        }
    }
    return at;
}

} // namespace

XmlScan XmlScan::over(QByteArrayView bytes, int allowedAttributes)
{
    XmlScan scan;
    const qsizetype harmless = shortestAttribute * allowedAttributes;
    for (qsizetype at = bytes.indexOf('<'); at >= 0 && at + 1 < bytes.size();) {
        const char second = bytes[at + 1];
        if (second == '!' || second == '?') {
            at = bytes.indexOf('<', std::max(behindOther(bytes, at), at + 1));
            continue;
        }
        // A tag holds no "<" but its own.
        const qsizetype found = bytes.indexOf('<', at + 1);
        const qsizetype next = found < 0 ? bytes.size() : found;
        if (second != '/') {
            ++scan.elements;
            if (next - at > harmless
                && countAttributes(bytes.sliced(at, next - at)) > allowedAttributes) {
                scan.tooManyAttributes = at;
                return scan;
            }
        }
        at = found;
    }
    return scan;
}

} // namespace MorvalenCore
