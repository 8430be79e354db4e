#include "component/XmlReader.h"

#include "component/XmlScan.h"

#include <QHashFunctions>
#include <QStringDecoder>

#include <algorithm>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

QString encodingRefusal(const QString &encoding)
{
    return u"The encoding %1 is not supported; only UTF-8 and ISO-8859-1 are."_s.arg(encoding);
}

} // namespace

XmlReader::XmlReader(const QByteArray &documentBytes, const XmlIndex::Wanted &wantedElements,
                     const XmlLimits &documentLimits)
    : bytes(documentBytes),
      wanted(wantedElements),
      limits(documentLimits),
      parser(XML_ParserCreate(nullptr))
{
    // Else the parser asks the system for random numbers for each document; without a seed of Qt's
    // it still does.
    XML_SetHashSalt(parser.get(), QHashSeed::globalSeed());
    XML_SetUserData(parser.get(), this);
    XML_SetXmlDeclHandler(parser.get(), onDeclaration);
    XML_SetStartDoctypeDeclHandler(parser.get(), onDoctype);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
}

XmlIndex XmlReader::read()
{
    if (!refuseByFirstBytes() && !refuseByScan()) {
        index.elements.emplace_back();
        parse();
    }
    return std::move(index);
}

bool XmlReader::refuseByScan()
{
    const XmlScan scan = XmlScan::over(bytes, limits.attributes);
    if (scan.tooManyAttributes >= 0) {
        index.error = u"An element has more than %1 attributes."_s.arg(limits.attributes);
        index.line = XmlIndex::lineOf(bytes, scan.tooManyAttributes);
        return true;
    }
    // Number 0 stands for none, and the first one too many is noticed when it is there.
    index.elements.reserve(std::min(scan.elements, limits.elements) + 2);
    return false;
}

bool XmlReader::refuseByFirstBytes()
{
    const auto startsWith = [this](const char *head, qsizetype size) {
        return bytes.startsWith(QByteArrayView(head, size));
    };
    const auto refused = [this](const QString &reason) {
        index.error = reason;
        index.line = 1;
        return true;
    };
    if (bytes.isEmpty())
        return refused(u"The file is empty."_s);
    const bool isUsual = bytes.size() > 1 && bytes[0] == '<' && bytes[1] != '\0';
    if (isUsual)
        return false;
    if (startsWith("\0\0\xfe\xff", 4) || startsWith("\xff\xfe\0\0", 4) || startsWith("\0\0\0<", 4)
        || startsWith("<\0\0\0", 4))
        return refused(encodingRefusal(u"UTF-32"_s));
    if (startsWith("\xfe\xff", 2) || startsWith("\xff\xfe", 2) || startsWith("\0<", 2)
        || startsWith("<\0", 2))
        return refused(encodingRefusal(u"UTF-16"_s));
    const qsizetype head = startsWith("\xef\xbb\xbf", 3) ? 3 : 0;
    const auto first = std::find_if_not(bytes.begin() + head, bytes.end(),
                                        [](char c) { return XmlText::isBlank(c); });
    if (first == bytes.end() || *first != '<')
        return refused(u"The file is not an XML document."_s);
    return false;
}

// In slices, since expat copies what it is given; few of them, since it starts a construct anew
// with each slice until it is complete.
void XmlReader::parse()
{
    const qsizetype slice = std::max<qsizetype>(bytes.size() / 16, 1 << 18);
    for (qsizetype at = 0; at < bytes.size(); at += slice) {
        const qsizetype length = std::min(slice, bytes.size() - at);
        const bool last = at + length == bytes.size();
        const auto status = XML_Parse(parser.get(), bytes.data() + at, static_cast<int>(length),
                                      last ? XML_TRUE : XML_FALSE);
        if (status == XML_STATUS_ERROR) {
            refuseByParser();
            return;
        }
    }
}

void XmlReader::refuseByParser()
{
    // A handler's own reason comes first.
    if (index.error.isEmpty())
        refuse(parserReason());
}

QString XmlReader::parserReason() const
{
    const XML_Error code = XML_GetErrorCode(parser.get());
    if (code == XML_ERROR_NO_ELEMENTS || code == XML_ERROR_UNCLOSED_TOKEN) {
        if (current == 0)
            return u"The document is not well-formed: it ends before its root element."_s;
        const XmlName &name = index.names.at(index.elements[current].name);
        return u"The document is not well-formed: it ends before its element %1 does."_s.arg(
            QString::fromUtf8(name.qualified()));
    }
    if (code == XML_ERROR_INVALID_TOKEN && index.encoding == XmlEncoding::Utf8) {
        const qsizetype at = XML_GetCurrentByteIndex(parser.get());
        // Four bytes are the longest character.
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        if (at >= 0 && at < bytes.size() && static_cast<uchar>(bytes[at]) >= 0x80) {
            const QString character = decoder(
                QByteArrayView(bytes).sliced(at).first(std::min<qsizetype>(4, bytes.size() - at)));
            if (character.startsWith(QChar::ReplacementCharacter))
                return u"The document is not well-formed: invalid UTF-8."_s;
        }
    }
    return u"The document is not well-formed: %1."_s.arg(
        QString::fromLatin1(XML_ErrorString(code)));
}

void XmlReader::refuse(const QString &reason)
{
    index.error = reason;
    index.line = static_cast<int>(XML_GetCurrentLineNumber(parser.get()));
    index.elements = {};
    XML_StopParser(parser.get(), XML_FALSE);
}

void XMLCALL XmlReader::onDeclaration(void *self, const XML_Char *version, const XML_Char *encoding,
                                      int standalone)
{
    Q_UNUSED(version)
    Q_UNUSED(standalone)
    static_cast<XmlReader *>(self)->declaration(encoding);
}

void XMLCALL XmlReader::onDoctype(void *self, const XML_Char *name, const XML_Char *system,
                                  const XML_Char *publicId, int hasSubset)
{
    Q_UNUSED(name)
    Q_UNUSED(system)
    Q_UNUSED(publicId)
    Q_UNUSED(hasSubset)
    static_cast<XmlReader *>(self)->refuse(
        u"The document has a document type declaration (DOCTYPE), which is not allowed."_s);
}

void XMLCALL XmlReader::onStart(void *self, const XML_Char *name, const XML_Char **attributes)
{
    static_cast<XmlReader *>(self)->start(name, attributes);
}

void XMLCALL XmlReader::onEnd(void *self, const XML_Char *name)
{
    Q_UNUSED(name)
    static_cast<XmlReader *>(self)->end();
}

void XmlReader::declaration(const char *encoding)
{
    if (encoding == nullptr || qstricmp(encoding, "UTF-8") == 0)
        return;
    if (qstricmp(encoding, "ISO-8859-1") == 0)
        index.encoding = XmlEncoding::Latin1;
    else if (qstricmp(encoding, "US-ASCII") == 0)
        index.encoding = XmlEncoding::Ascii;
    else
        refuse(encodingRefusal(QString::fromUtf8(encoding)));
}

void XmlReader::start(const char *name, const char **attributes)
{
    if (!index.isValid())
        return;
    if (++depth > limits.depth)
        return refuse(u"The elements are nested deeper than %1 levels."_s.arg(limits.depth));
    watchPrefixes(name, attributes);
    if (skipBelow == 0)
        addElement(name, attributes);
}

void XmlReader::watchPrefixes(const char *name, const char **attributes)
{
    const QByteArrayView undeclared = prefixes.enter(name, attributes);
    if (undeclared.isEmpty() || !index.undeclaredPrefix.isEmpty())
        return;
    index.undeclaredPrefix = QString::fromUtf8(undeclared);
    index.undeclaredLine = static_cast<int>(XML_GetCurrentLineNumber(parser.get()));
}

void XmlReader::addElement(const char *name, const char **attributes)
{
    const auto number = static_cast<std::uint32_t>(index.elements.size());
    XmlElement element;
    element.parent = current;
    std::uint32_t scope = XmlNames::outermost;
    if (current != 0) {
        XmlElement &parent = index.elements[current];
        scope = index.names.at(parent.name).scope;
        element.previous = parent.last;
        (parent.last != 0 ? index.elements[parent.last].next : parent.first) = number;
        parent.last = number;
    }
    for (; *attributes != nullptr; attributes += 2) {
        if (std::strncmp(attributes[0], "xmlns", 5) != 0)
            continue;
        if (attributes[0][5] == ':')
            scope = index.names.declare(scope, attributes[0] + 6, attributes[1]);
        else if (attributes[0][5] == '\0')
            scope = index.names.declare(scope, "", attributes[1]);
    }
    element.name = index.names.name(scope, name);
    element.start = static_cast<std::uint32_t>(XML_GetCurrentByteIndex(parser.get()));
    element.startTagEnd =
        element.start + static_cast<std::uint32_t>(XML_GetCurrentByteCount(parser.get()));
    index.elements.push_back(element);
    current = number;

    if (number > limits.elements)
        return refuse(u"The document has more than %1 elements."_s.arg(limits.elements));
    if (index.names.size() > limits.names)
        return refuse(u"The document has more than %1 names of elements."_s.arg(limits.names));

    const int level = depth - 1;
    const bool asked = level == 1 || level == 2;
    if (asked && !wanted(index.names, index.names.at(element.name), level))
        skipBelow = depth;
}

void XmlReader::end()
{
    if (!index.isValid())
        return;
    prefixes.leave();
    const bool skipped = skipBelow != 0 && depth > skipBelow;
    if (depth == skipBelow)
        skipBelow = 0;
    --depth;
    if (skipped)
        return;
    XmlElement &element = index.elements[current];
    const auto at = static_cast<std::uint32_t>(XML_GetCurrentByteIndex(parser.get()));
    element.end = at + static_cast<std::uint32_t>(XML_GetCurrentByteCount(parser.get()));
    // expat reports the end of a self-closing element behind its tag, with no bytes.
    element.endTagStart = at == element.end ? element.end : at;
    current = element.parent;
}

} // namespace MorvalenCore
