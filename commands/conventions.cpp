#include "commands/conventions.h"

#include <MorvalenCore/AbstractScriptedAction.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;

QString prepareUsageMessage(QMap<QString, QString> usage)
{
    qsizetype longest = 0;
    for (auto row = usage.cbegin(); row != usage.cend(); ++row)
        longest = qMax(longest, row.key().length());

    QString body;
    for (auto row = usage.cbegin(); row != usage.cend(); ++row)
        body += row.key().leftJustified(longest + 1) + "  - "_L1 + row.value() + u'\n';
    return body;
}

QString stringListToTclList(QStringList list)
{
    qsizetype length = 0;
    for (const QString &element : std::as_const(list))
        length += element.length() + 3;

    QString text;
    text.reserve(length);
    for (const QString &element : std::as_const(list))
        text += " \""_L1 + element + u'"';
    return text.trimmed();
}

QString preparePath(const QString &path) { return QDir::toNativeSeparators(path); }

void initExec() { MorvalenCore::AbstractScriptedAction::initExec(); }

void finalizeExec() { MorvalenCore::AbstractScriptedAction::finalizeExec(); }
