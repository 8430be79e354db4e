#include "logline.h"

#include <Qtilities/Logger.h>

namespace Qtilities::Logging {

namespace {

using namespace Qt::Literals::StringLiterals;

bool isHarmless(QChar character)
{
    return character == u'\t' || character.category() != QChar::Other_Control;
}

QString printable(const QString &line)
{
    if (std::all_of(line.cbegin(), line.cend(), isHarmless))
        return line;
    QString spelt;
    for (const QChar character : line) {
        if (isHarmless(character))
            spelt += character;
        else
            spelt += u"\\x%1"_s.arg(int(character.unicode()), 2, 16, QChar(u'0'));
    }
    return spelt;
}

} // namespace

QStringList messageLines(const QString &text)
{
    QStringList lines;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = start;
        while (end < text.size() && text[end] != u'\n' && text[end] != u'\r')
            ++end;
        lines.append(text.mid(start, end - start));
        const bool pair = end + 1 < text.size() && text[end] == u'\r' && text[end + 1] == u'\n';
        start = end + (pair ? 2 : 1);
    }
    if (lines.isEmpty())
        lines.append(QString());
    return lines;
}

QString logEntry(const QString &prefix, int type, const QString &text)
{
    const QString word = Logger::messageTypeName(Logger::MessageType(type));
    QString entry = prefix + word + ": "_L1;
    bool first = true;
    for (const QString &line : messageLines(text)) {
        if (!first)
            entry += "    "_L1;
        entry += printable(line) + u'\n';
        first = false;
    }
    return entry;
}

} // namespace Qtilities::Logging
