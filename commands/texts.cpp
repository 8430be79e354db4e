#include "commands/texts.h"

#include "commands/conventions.h"

namespace commands {

QString fill(QStringView text, std::initializer_list<QString> values)
{
    QString filled;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const int digit =
            text[at] == u'%' && at + 1 < text.size() ? text[at + 1].unicode() - u'0' : 0;
        if (digit >= 1 && digit <= int(values.size())) {
            filled += values.begin()[digit - 1];
            ++at;
        } else {
            filled += text[at];
        }
    }
    return filled;
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
