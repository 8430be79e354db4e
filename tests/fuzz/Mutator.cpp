#include "tests/fuzz/Mutator.h"

#include <QStringEncoder>

namespace {

// In bytes; longer ones are cut.
constexpr qsizetype longest = 64 * 1024;
constexpr int mostChanges = 8;

// What no text expects: marks, half and overlong characters, controls, numbers beyond limits.
const QList<QByteArray> oddities {"\xEF\xBB\xBF",
                                  "\xEF\xBF\xBE",
                                  "\xEF\xBF\xBF",
                                  "\xED\xA0\x80",
                                  "\xC0\x80",
                                  "\xF4\x90\x80\x80",
                                  "\xFF",
                                  QByteArray("\0", 1),
                                  "\x01",
                                  "\x7F",
                                  "\xC2\x85",
                                  "\xE2\x80\xA8",
                                  "\xF0\x9F\x98\x80",
                                  "\r",
                                  "\r\n",
                                  "-1",
                                  "2147483648",
                                  "18446744073709551616",
                                  "1e999",
                                  "nan",
                                  "%1",
                                  "%n%s",
                                  "../../..",
                                  "/",
                                  "$(X)",
                                  "${HOME}",
                                  "\\",
                                  "\"",
                                  "'",
                                  " ",
                                  "a\xCC\x81",
                                  "\xE2\x80\xAE txt",
                                  QByteArray(300, 'x'),
                                  "::",
                                  "\t"};

struct Piece
{
    qsizetype from;
    qsizetype size;
};

Piece anyPiece(const QByteArray &input, QRandomGenerator &random)
{
    const qsizetype from = random.bounded(int(input.size()) + 1);
    const qsizetype most = qMin<qsizetype>(input.size() - from, random.bounded(4) > 0 ? 20 : 2000);
    return {from, most > 0 ? random.bounded(int(most) + 1) : 0};
}

// From one mark, such as a "<" or the end of a line, to a later one.
Piece markedPiece(const QByteArray &input, QRandomGenerator &random)
{
    const char mark = random.bounded(2) ? '<' : '\n';
    const qsizetype from = input.indexOf(mark, random.bounded(int(input.size()) + 1));
    if (from < 0)
        return anyPiece(input, random);
    qsizetype to = from;
    for (int marks = 1 + random.bounded(6); marks > 0 && to >= 0; --marks)
        to = input.indexOf(mark, to + 1);
    return {from, (to < 0 ? input.size() : to) - from};
}

QByteArray inOtherCoding(const QByteArray &input, QRandomGenerator &random)
{
    constexpr QStringConverter::Encoding codings[] {
        QStringConverter::Utf16LE, QStringConverter::Utf16BE, QStringConverter::Utf32,
        QStringConverter::Latin1};
    QStringEncoder encoder(codings[random.bounded(4)]);
    return encoder(QString::fromUtf8(input));
}

} // namespace

Mutator::Mutator(const QList<QByteArray> &good, const QList<QByteArray> &words)
    : goodOnes(good),
      dictionary(words + oddities)
{
}

QByteArray Mutator::make(QRandomGenerator &random) const
{
    QByteArray input = goodOnes[random.bounded(int(goodOnes.size()))];
    for (int changes = 1 + random.bounded(mostChanges); changes > 0; --changes)
        input = changed(input, random).left(longest);
    return random.bounded(50) ? input : inOtherCoding(input, random);
}

QByteArray Mutator::changed(QByteArray input, QRandomGenerator &random) const
{
    const Piece piece = random.bounded(2) ? anyPiece(input, random) : markedPiece(input, random);
    const QByteArray bytes = input.mid(piece.from, piece.size);
    const qsizetype place = random.bounded(int(input.size()) + 1);
    switch (random.bounded(9)) {
    case 0:
        return input.remove(piece.from, piece.size);
    case 1:
        return input.insert(place, bytes);
    case 2:
        return input.remove(piece.from, piece.size).insert(qMin(place, input.size()), bytes);
    case 3:
        return input.insert(piece.from, bytes.repeated(1 + random.bounded(40)));
    case 4:
        return input.left(place);
    case 5: {
        const QByteArray other = goodOnes[random.bounded(int(goodOnes.size()))];
        const Piece part = markedPiece(other, random);
        return input.insert(place, other.mid(part.from, part.size));
    }
    case 6:
        if (place < input.size())
            input[place] = char(random.bounded(256));
        return input;
    default: {
        const QByteArray &word = dictionary[random.bounded(int(dictionary.size()))];
        return random.bounded(2) ? input.insert(place, word)
                                 : input.replace(piece.from, qMin<qsizetype>(piece.size, 20), word);
    }
    }
}
