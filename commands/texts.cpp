#include "commands/texts.h"

#include "commands/conventions.h"

namespace commands {

QString fill(QStringView text, std::initializer_list<QString> values)
{
    QString filled;
    qsizetype done = 0;
    for (qsizetype at = text.indexOf(u'%'); at >= 0; at = text.indexOf(u'%', at + 1)) {
        const int digit = at + 1 < text.size() ? text[at + 1].unicode() - u'0' : 0;
        if (digit < 1 || digit > int(values.size()))
            continue;
        filled += text.sliced(done, at - done);
        filled += values.begin()[digit - 1];
        done = at + 2;
    }
    return filled += text.sliced(done);
}

QString usageText(QStringView header, std::initializer_list<QString> values, UsageRows rows)
{
    QMap<QString, QString> map;
    for (const UsageRow &row : rows)
        map.insert(QString::fromUtf8(row.key), QString::fromUtf8(row.help));
    return fill(header, values) + prepareUsageMessage(map);
}

std::optional<bool> truthWord(const QString &word)
{
    if (word.compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(u"false", Qt::CaseInsensitive) == 0)
        return false;
    return std::nullopt;
}

} // namespace commands
