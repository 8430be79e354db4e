#include "logline.h"

#include <Qtilities/Logger.h>

namespace Qtilities::Logging {

namespace {

using namespace Qt::Literals::StringLiterals;

bool isHarmless(QChar character)
{
    return character == u'\t' || character.category() != QChar::Other_Control;
}

QString printable(QStringView line)
{
    if (std::all_of(line.cbegin(), line.cend(), isHarmless))
        return line.toString();
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

QStringView takeLine(QStringView *rest)
{
    const auto isLineEnd = [](QChar character) { return character == u'\n' || character == u'\r'; };
    const auto end = std::find_if(rest->cbegin(), rest->cend(), isLineEnd);
    const QStringView line = rest->first(end - rest->cbegin());
    *rest = rest->sliced(line.size());
    if (rest->startsWith("\r\n"_L1))
        *rest = rest->sliced(2);
    else if (!rest->isEmpty())
        *rest = rest->sliced(1);
    return line;
}

QString logEntry(const QString &prefix, int type, const QString &text)
{
    const QString word = Logger::messageTypeName(Logger::MessageType(type));
    QString entry = prefix + word + ": "_L1;
    QStringView rest = text;
    entry += printable(takeLine(&rest)) + u'\n';
    while (!rest.isEmpty())
        entry += "    "_L1 + printable(takeLine(&rest)) + u'\n';
    return entry;
}

} // namespace Qtilities::Logging
