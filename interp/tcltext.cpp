#include "interp/tcltext.h"

#include <QStringDecoder>

#include <algorithm>

namespace tcltext {

namespace {

// Tcl reads what is no UTF-8 as the character of the byte's value; a character beyond the basic
// plane as two surrogates, in which form QString keeps it too.
QString decodedByTcl(const QByteArray &bytes)
{
    static_assert(sizeof(Tcl_UniChar) == sizeof(char16_t));
    QString text;
    text.reserve(bytes.size());
    const char *at = bytes.constData();
    const char *const end = at + bytes.size();
    for (Tcl_UniChar unit = 0; at < end; text.append(QChar(unit)))
        at += Tcl_UtfToUniChar(at, &unit);
    return text;
}

void appendThreeBytes(QByteArray &bytes, char16_t unit)
{
    bytes.append(char(0xE0 | (unit >> 12)));
    bytes.append(char(0x80 | ((unit >> 6) & 0x3F)));
    bytes.append(char(0x80 | (unit & 0x3F)));
}

} // namespace

QString fromTcl(const char *text)
{
    return text ? fromTcl(text, qsizetype(qstrlen(text))) : QString();
}

QString fromTcl(const char *text, qsizetype length)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    QString decoded = decoder(QByteArrayView(text, length));
    return decoder.hasError() ? decodedByTcl(QByteArray(text, length)) : decoded;
}

// A character beyond the basic plane is handed over as two surrogates, as Tcl itself makes it from
// its input: given the four bytes of UTF-8 instead, "string toupper" crashes in Tcl 8.6.13.
QByteArray toTcl(const QString &text)
{
    const auto needsTcl = [](QChar unit) { return unit.isNull() || unit.isSurrogate(); };
    if (std::none_of(text.begin(), text.end(), needsTcl))
        return text.toUtf8();
    QByteArray bytes;
    bytes.reserve(text.size() * 3);
    for (const QChar unit : text) {
        if (unit.isNull())
            bytes.append("\xC0\x80");
        else if (needsTcl(unit))
            appendThreeBytes(bytes, unit.unicode());
        else
            bytes.append(QStringView(&unit, 1).toUtf8());
    }
    return bytes;
}

bool equals(const QString &text, const char *tclText)
{
    const char *at = tclText;
    for (const QChar unit : text) {
        const auto byte = static_cast<unsigned char>(*at++);
        if (byte >= 0x80)
            return text == fromTcl(tclText);
        if (byte == 0 || unit.unicode() != byte)
            return false;
    }
    return *at == '\0';
}

void appendResult(Tcl_Interp *interp, const QString &text)
{
    Tcl_AppendResult(interp, toTcl(text).constData(), nullptr);
}

QString result(Tcl_Interp *interp)
{
    int length = 0;
    const char *text = Tcl_GetStringFromObj(Tcl_GetObjResult(interp), &length);
    return fromTcl(text, length);
}

} // namespace tcltext
