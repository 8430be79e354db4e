#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace ensemble {

// One call as its usage text shows it, such as "morvalen nodes ?-design ID?", and what it does.
struct ManualCall
{
    QString call;
    QString does;
};

// What a subcommand tells about itself.
struct Manual
{
    QString word;
    QString does;
    QList<ManualCall> calls;
};

// Of all subcommands, in alphabetic order.
QList<Manual> manuals();

// The words that can follow the words of a call that is begun, "morvalen" the first of them:
// subcommands, then those of a group, then options. Empty when nothing is known.
QStringList nextWords(const QStringList &words);

} // namespace ensemble
