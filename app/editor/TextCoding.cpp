#include "app/editor/TextCoding.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QByteArrayView mark("\xEF\xBB\xBF");

// Of so many characters at most one may be a control character that is not used in text.
constexpr qsizetype textPerControl = 20;

bool isControl(char byte)
{
    static constexpr QByteArrayView usedInText("\t\n\v\f\r\x1B\x1A");
    const auto code = static_cast<unsigned char>(byte);
    return (code < 0x20 && !usedInText.contains(byte)) || code == 0x7F;
}

} // namespace

TextCoding TextCoding::of(const QByteArray &bytes, QString *text)
{
    TextCoding coding;
    coding.byteOrderMark = bytes.startsWith(mark);
    const QByteArray body = coding.byteOrderMark ? bytes.sliced(mark.size()) : bytes;
    // A second mark is a character of the text.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    *text = decoder.decode(body);
    if (!decoder.hasError() && text->toUtf8() == body)
        return coding;
    coding.latin1 = true;
    coding.byteOrderMark = false;
    *text = QString::fromLatin1(bytes);
    return coding;
}

QString TextCoding::whyNotText(const QByteArray &bytes)
{
    if (bytes.contains('\0'))
        return tr("it is not text, since it holds a zero byte");
    const qsizetype controls = std::count_if(bytes.begin(), bytes.end(), isControl);
    if (controls * textPerControl > bytes.size())
        return tr("it is not text, since it holds too many control characters");
    return {};
}

std::optional<QByteArray> TextCoding::encode(const QString &text, qsizetype *place) const
{
    if (!latin1)
        return byteOrderMark ? mark.toByteArray() + text.toUtf8() : text.toUtf8();
    const auto foreign = std::find_if(text.begin(), text.end(),
                                      [](QChar character) { return character.unicode() > 0xFF; });
    *place = foreign - text.begin();
    if (foreign != text.end())
        return std::nullopt;
    return text.toLatin1();
}

QString TextCoding::name() const
{
    if (latin1)
        return tr("Latin-1");
    return byteOrderMark ? tr("UTF-8 with BOM") : tr("UTF-8");
}
