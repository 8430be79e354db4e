#pragma once

#include <QStringList>

// What Tab does with the candidates for a command.
struct Completion
{
    enum Kind {
        Tab, // there is none: a tab character is typed
        Replacement, // there is one: text takes the command's place
        List // there are several: the list is shown, and text typed behind a new prompt
    };

    // prefix is what stands in front of each candidate. The text of a list ends with what all
    // candidates begin with.
    static Completion of(const QStringList &candidates, const QString &prefix);

    Kind kind = Tab;
    QString text;
    QString list;
};
