#include "component/xmltext.h"

#include <Qtilities/utf8text.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore::XmlText {

namespace {

QString decodeBytes(QByteArrayView bytes, XmlEncoding encoding)
{
    return encoding == XmlEncoding::Latin1 ? QString::fromLatin1(bytes)
                                           : Qtilities::Core::textOfUtf8(bytes);
}

// The character of a reference such as "lt" or "#x20"; the parser has vouched for its form.
QString decodeReference(QByteArrayView name)
{
    if (name.startsWith('#')) {
        const bool hexadecimal = name.size() > 1 && name[1] == 'x';
        const auto digits = name.sliced(hexadecimal ? 2 : 1);
        const char32_t code = digits.toUInt(nullptr, hexadecimal ? 16 : 10);
        return QStringView(QChar::fromUcs4(code)).toString();
    }
    if (name == "lt")
        return u"<"_s;
    if (name == "gt")
        return u">"_s;
    if (name == "amp")
        return u"&"_s;
    return name == "quot" ? u"\""_s : u"'"_s;
}

QByteArrayView trimmed(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && isBlank(bytes.front()))
        bytes = bytes.sliced(1);
    while (!bytes.isEmpty() && isBlank(bytes.back()))
        bytes.chop(1);
    return bytes;
}

// Collects the decoded text of an element and leaves out blanks at its ends.
class TextCollector
{
public:
    explicit TextCollector(XmlEncoding documentEncoding) : encoding(documentEncoding) { }

    void addLiteral(QByteArrayView bytes)
    {
        QString piece = decodeBytes(bytes, encoding);
        piece.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
        for (const QChar character : std::as_const(piece)) {
            const bool blank =
                character.unicode() < 0x80 && isBlank(static_cast<char>(character.unicode()));
            if (blank && text.isEmpty())
                continue;
            text += character;
            if (!blank)
                keep = text.size();
        }
    }

    void addReference(QByteArrayView name)
    {
        text += decodeReference(name);
        keep = text.size();
    }

    QString result() const { return text.left(keep); }

private:
    XmlEncoding encoding;
    QString text;
    qsizetype keep = 0;
};

// Steps over what starts with "<" at the head of rest, outside any text: a comment, an
// instruction or a tag. Gives its length and counts the open elements.
qsizetype skipMarkup(QByteArrayView rest, int &open)
{
    if (rest.startsWith("<!--"))
        return rest.indexOf("-->", 4) + 3;
    if (rest.startsWith("<?"))
        return rest.indexOf("?>", 2) + 2;
    qsizetype end = 1;
    for (char quote = 0; quote != 0 || rest[end] != '>'; ++end) {
        if (quote != 0)
            quote = rest[end] == quote ? 0 : quote;
        else if (rest[end] == '"' || rest[end] == '\'')
            quote = rest[end];
    }
    if (rest[1] == '/')
        --open;
    else if (rest[end - 1] != '/')
        ++open;
    return end + 1;
}

uint greatestCode(XmlEncoding encoding)
{
    switch (encoding) {
    case XmlEncoding::Ascii:
        return 0x7f;
    case XmlEncoding::Latin1:
        return 0xff;
    case XmlEncoding::Utf8:
        break;
    }
    return 0x10ffff;
}

void addReferenceTo(QByteArray &out, uint code) { out += "&#" + QByteArray::number(code) + ';'; }

void addCharacter(QByteArray &out, char32_t code, XmlEncoding encoding)
{
    if (code < 0x80)
        out += static_cast<char>(code);
    else if (code > greatestCode(encoding))
        addReferenceTo(out, code);
    else if (encoding == XmlEncoding::Latin1)
        out += static_cast<char>(code);
    else
        out += QStringView(QChar::fromUcs4(code)).toUtf8();
}

char32_t codeAt(QStringView text, qsizetype &at)
{
    const QChar first = text[at++];
    if (first.isHighSurrogate() && at < text.size())
        return QChar::surrogateToUcs4(first, text[at++]);
    return first.unicode();
}

} // namespace

bool isBlank(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char character) { return isBlank(character); });
}

Status checkCarried(QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const ushort code = text[i].unicode();
        if (QChar::isHighSurrogate(code) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i;
            continue;
        }
        const bool control = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
        if (!control && !QChar::isSurrogate(code) && code != 0xfffe && code != 0xffff)
            continue;
        return Status::invalidArgument(
            u"The text holds the character U+%1, which XML cannot carry."_s.arg(
                QString::number(code, 16).toUpper().rightJustified(4, u'0')));
    }
    return {};
}

QString decodeContent(QByteArrayView content, XmlEncoding encoding)
{
    const QByteArrayView plain = trimmed(content);
    if (!plain.contains('<') && !plain.contains('&') && !plain.contains('\r'))
        return decodeBytes(plain, encoding);

    TextCollector collector(encoding);
    int open = 0;
    for (qsizetype at = 0; at < content.size();) {
        const QByteArrayView rest = content.sliced(at);
        if (rest.startsWith("<![CDATA[")) {
            const qsizetype end = rest.indexOf("]]>", 9);
            if (open == 0)
                collector.addLiteral(rest.sliced(9, end - 9));
            at += end + 3;
        } else if (rest[0] == '<') {
            at += skipMarkup(rest, open);
        } else if (rest[0] == '&') {
            const qsizetype end = rest.indexOf(';');
            if (open == 0)
                collector.addReference(rest.sliced(1, end - 1));
            at += end + 1;
        } else {
            const auto stop =
                std::find_if(rest.begin(), rest.end(), [](char c) { return c == '<' || c == '&'; });
            const qsizetype length = stop - rest.begin();
            if (open == 0)
                collector.addLiteral(rest.first(length));
            at += length;
        }
    }
    return collector.result();
}

QString decodeAttribute(QByteArrayView value, XmlEncoding encoding)
{
    QString text;
    for (qsizetype at = 0; at < value.size();) {
        const qsizetype reference = value.indexOf('&', at);
        const qsizetype stop = reference < 0 ? value.size() : reference;
        QString piece = decodeBytes(value.sliced(at, stop - at), encoding);
        piece.replace("\r\n"_L1, " "_L1);
        for (QChar &character : piece) {
            if (character == u'\n' || character == u'\r' || character == u'\t')
                character = u' ';
        }
        text += piece;
        at = stop;
        if (reference >= 0) {
            const qsizetype end = value.indexOf(';', reference);
            text += decodeReference(value.sliced(reference + 1, end - reference - 1));
            at = end + 1;
        }
    }
    return text;
}

QByteArray encodeContent(QStringView text, XmlEncoding encoding, QByteArrayView lineEnd)
{
    const QStringView inner = text.trimmed();
    const qsizetype head = inner.isEmpty() ? text.size() : inner.data() - text.data();
    const qsizetype tail = head + inner.size();
    QByteArray out;
    out.reserve(text.size());
    for (qsizetype at = 0; at < text.size();) {
        const bool atAnEnd = at < head || at >= tail;
        const char32_t code = codeAt(text, at);
        if (code == '&')
            out += "&amp;";
        else if (code == '<')
            out += "&lt;";
        else if (code == '>')
            out += "&gt;";
        else if (code == '\r' || (atAnEnd && code < 0x80))
            addReferenceTo(out, code);
        else if (code == '\n')
            out += lineEnd;
        else
            addCharacter(out, code, encoding);
    }
    return out;
}

QByteArray encodeAttribute(QStringView text, XmlEncoding encoding)
{
    QByteArray out;
    out.reserve(text.size());
    for (qsizetype at = 0; at < text.size();) {
        const char32_t code = codeAt(text, at);
        if (code == '&')
            out += "&amp;";
        else if (code == '<')
            out += "&lt;";
        else if (code == '"')
            out += "&quot;";
        else if (code == '\'')
            out += "&apos;";
        else if (code < 0x20)
            addReferenceTo(out, code);
        else
            addCharacter(out, code, encoding);
    }
    return out;
}

} // namespace MorvalenCore::XmlText
