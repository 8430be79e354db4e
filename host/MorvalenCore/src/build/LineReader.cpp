#include "build/LineReader.h"

#include <Qtilities/utf8text.h>

#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

// Where to cut a piece of at most that many bytes, so that no character is cut in two.
qsizetype cutBefore(const QByteArray &bytes, qsizetype size)
{
    qsizetype cut = size;
    while (cut > size - 4 && (uchar(bytes[cut]) & 0xc0) == 0x80)
        --cut;
    return cut > size - 4 ? cut : size;
}

QString escaped(uchar byte) { return u"\\x%1"_s.arg(byte, 2, 16, QChar(u'0')); }

// How many bytes the character at the front takes; 0 when it is not UTF-8.
qsizetype characterSize(QByteArrayView bytes)
{
    const uchar lead = uchar(bytes.front());
    const qsizetype size = lead < 0x80 ? 1 : lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (size > bytes.size())
        return 0;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(bytes.first(size));
    return decoder.hasError() || decoded.contains(QChar::ReplacementCharacter) ? 0 : size;
}

QString decodedBytewise(QByteArrayView bytes)
{
    QString text;
    while (!bytes.empty()) {
        const qsizetype size = characterSize(bytes);
        text += size > 0 ? Qtilities::Core::textOfUtf8(bytes.first(size))
                         : escaped(uchar(bytes.front()));
        bytes = bytes.sliced(std::max<qsizetype>(size, 1));
    }
    return text;
}

} // namespace

void LineReader::take(const QByteArray &bytes)
{
    for (qsizetype at = 0; at < bytes.size();) {
        const qsizetype feed = bytes.indexOf('\n', at);
        const qsizetype end = feed < 0 ? bytes.size() : feed;
        while (at < end) {
            // One byte beyond the limit says whether the line goes on.
            const qsizetype room = longestLine + 1 - line.size();
            const qsizetype part = std::min(room, end - at);
            line.append(bytes.constData() + at, part);
            at += part;
            if (line.size() > longestLine) {
                const qsizetype cut = cutBefore(line, longestLine);
                const QByteArray rest = line.mid(cut);
                line.truncate(cut);
                receiver(line);
                line = rest;
            }
        }
        if (feed >= 0) {
            endLine();
            at = feed + 1;
        }
    }
}

void LineReader::finish()
{
    if (!line.isEmpty())
        endLine();
}

void LineReader::endLine()
{
    while (line.endsWith('\r'))
        line.chop(1);
    line.remove(0, line.lastIndexOf('\r') + 1);
    receiver(line);
    line.clear();
}

QString shownText(const QByteArray &line)
{
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    QString text = decoder(line);
    if (decoder.hasError())
        text = decodedBytewise(line);
    static const QRegularExpression sequence(
        u"\\x{1b}(?:\\[[0-?]*[ -/]*[@-~]|\\][^\\x{7}\\x{1b}]*(?:\\x{7}|\\x{1b}\\\\)?)"_s);
    if (text.contains(u'\x1b'))
        text.remove(sequence);
    for (qsizetype at = text.size() - 1; at >= 0; --at) {
        const char16_t c = text[at].unicode();
        if ((c < 0x20 && c != u'\t') || c == 0x7f)
            text.replace(at, 1, escaped(uchar(c)));
    }
    return text;
}

} // namespace MorvalenCore
