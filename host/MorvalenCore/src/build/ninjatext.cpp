#include "build/ninjatext.h"

#include <cstring>

namespace MorvalenCore {

namespace {

// Appends the text with each special byte replaced by what stands for it.
template <typename Replacement>
void append(QByteArray *text, const QByteArray &bytes, const char *special, Replacement replacement)
{
    const char *at = bytes.constData();
    const char *const end = at + bytes.size();
    while (at < end) {
        const size_t plain = strcspn(at, special);
        text->append(at, qsizetype(plain));
        at += plain;
        if (at < end)
            text->append(replacement(*at++));
    }
}

} // namespace

void appendNinjaPath(QByteArray *text, const QString &path)
{
    append(text, path.toUtf8(), " $:|", [](char c) -> QByteArray {
        return c == '|' ? QByteArrayLiteral("${pipe}") : QByteArray("$").append(c);
    });
}

void appendNinjaValue(QByteArray *text, const QString &value)
{
    // Blanks in front of a value are not part of it unless they are escaped.
    if (value.startsWith(u' '))
        text->append('$');
    append(text, value.toUtf8(), "$", [](char) { return QByteArrayLiteral("$$"); });
}

QByteArray ninjaPool(const QString &name)
{
    QByteArray word = "-";
    for (const char c : name.toUtf8()) {
        const bool isPlain =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        word += isPlain ? QByteArray(1, c) : '_' + QByteArray(1, c).toHex();
    }
    return word;
}

void appendNinjaPool(QByteArray *text, const QString &name, int depth)
{
    *text += "\npool " + ninjaPool(name) + "\n  depth = " + QByteArray::number(depth) + '\n';
}

} // namespace MorvalenCore
