#include "ensemble/Row.h"

using namespace Qt::Literals::StringLiterals;

namespace ensemble {

namespace {

QString usageOf(const Option &option)
{
    QString text = QString::fromUtf8(option.name);
    if (option.value)
        text += u' ' + QString::fromUtf8(option.value);
    return option.isRequired ? text : u'?' + text + u'?';
}

} // namespace

QString usageOf(const Row &row, const QString &prefix)
{
    QStringList parts {prefix, QString::fromUtf8(row.word), QString::fromUtf8(row.arguments)};
    for (const Option &option : row.options)
        parts.append(usageOf(option));
    parts.removeAll(QString());
    return parts.join(u' ');
}

QString choices(const QStringList &words)
{
    if (words.size() < 2)
        return words.join(QString());
    return words.first(words.size() - 1).join(u", "_s) + u" or "_s + words.last();
}

QStringList wordsOf(Rows rows)
{
    QStringList words;
    for (const Row &row : rows)
        words.append(QString::fromUtf8(row.word));
    return words;
}

QStringList namesOf(Options options)
{
    QStringList names;
    for (const Option &option : options)
        names.append(QString::fromUtf8(option.name));
    return names;
}

} // namespace ensemble
