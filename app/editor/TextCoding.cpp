#include "app/editor/TextCoding.h"

#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace {

constexpr QByteArrayView mark("\xEF\xBB\xBF");

// Of so many characters at most one may be a control character that is not used in text.
constexpr qsizetype textPerControl = 20;

bool isControl(char16_t code)
{
    static constexpr QStringView usedInText(u"\t\n\v\f\r\x1B\x1A");
    return (code < 0x20 && !usedInText.contains(QChar(code))) || code == 0x7F;
}

// The kind of UTF-16 that the bytes say that they are.
std::optional<TextCoding::Kind> kindOfUtf16(const QByteArray &bytes)
{
    if (bytes.startsWith("\xFF\xFE"))
        return TextCoding::Utf16Little;
    if (bytes.startsWith("\xFE\xFF"))
        return TextCoding::Utf16Big;
    return std::nullopt;
}

// Each unit as it is: also half a pair is kept.
QString fromUtf16(const QByteArray &bytes, TextCoding::Kind kind)
{
    QString text(bytes.size() / 2 - 1, Qt::Uninitialized);
    const char *unit = bytes.constData() + 2;
    for (QChar &character : text) {
        character = QChar(kind == TextCoding::Utf16Little ? qFromLittleEndian<quint16>(unit)
                                                          : qFromBigEndian<quint16>(unit));
        unit += 2;
    }
    return text;
}

QByteArray toUtf16(const QString &text, TextCoding::Kind kind)
{
    QByteArray bytes(2 * text.size() + 2, Qt::Uninitialized);
    char *unit = bytes.data();
    const auto put = [&](char16_t code) {
        if (kind == TextCoding::Utf16Little)
            qToLittleEndian<quint16>(code, unit);
        else
            qToBigEndian<quint16>(code, unit);
        unit += 2;
    };
    put(QChar::ByteOrderMark);
    for (const QChar character : text)
        put(character.unicode());
    return bytes;
}

Status checkText(qsizetype size, qsizetype zeros, qsizetype controls)
{
    if (zeros > 0)
        return Status::malformed(TextCoding::tr("it is not text, since it holds a zero byte"));
    if (controls * textPerControl > size)
        return Status::malformed(
            TextCoding::tr("it is not text, since it holds too many control characters"));
    return {};
}

} // namespace

TextCoding TextCoding::of(const QByteArray &bytes, QString *text)
{
    if (const auto kind = kindOfUtf16(bytes); kind && bytes.size() % 2 == 0) {
        *text = fromUtf16(bytes, *kind);
        return *kind;
    }
    const bool hasMark = bytes.startsWith(mark);
    const QByteArray body = hasMark ? bytes.sliced(mark.size()) : bytes;
    // A second mark is a character of the text.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    *text = decoder.decode(body);
    if (!decoder.hasError() && text->toUtf8() == body)
        return hasMark ? Utf8Mark : Utf8;
    *text = QString::fromLatin1(bytes);
    return Latin1;
}

Status TextCoding::check(const QByteArray &bytes)
{
    if (const auto kind = kindOfUtf16(bytes); kind && bytes.size() % 2 == 0) {
        const QString text = fromUtf16(bytes, *kind);
        const auto controls = std::count_if(text.begin(), text.end(), [](QChar character) {
            return isControl(character.unicode());
        });
        return checkText(text.size(), text.count(QChar()), controls);
    }
    const auto controls = std::count_if(bytes.begin(), bytes.end(), [](char byte) {
        return isControl(static_cast<unsigned char>(byte));
    });
    return checkText(bytes.size(), bytes.count('\0'), controls);
}

std::optional<QByteArray> TextCoding::encode(const QString &text, qsizetype *place) const
{
    if (kind == Utf16Little || kind == Utf16Big)
        return toUtf16(text, kind);
    if (kind != Latin1)
        return kind == Utf8Mark ? mark.toByteArray() + text.toUtf8() : text.toUtf8();
    const auto foreign = std::find_if(text.begin(), text.end(),
                                      [](QChar character) { return character.unicode() > 0xFF; });
    *place = foreign - text.begin();
    if (foreign != text.end())
        return std::nullopt;
    return text.toLatin1();
}

QString TextCoding::name() const
{
    switch (kind) {
    case Utf8Mark:
        return tr("UTF-8 with BOM");
    case Latin1:
        return tr("Latin-1");
    case Utf16Little:
        return tr("UTF-16 LE");
    case Utf16Big:
        return tr("UTF-16 BE");
    case Utf8:
        break;
    }
    return tr("UTF-8");
}

QList<TextCoding> TextCoding::all() { return {Utf8, Utf8Mark, Latin1, Utf16Little, Utf16Big}; }
