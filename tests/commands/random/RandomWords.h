#pragma once

#include "commands/commandset.h"
#include "commands/manuals.h"

#include <QRandomGenerator>
#include <QStringList>

// Calls of any number of any words, most of them close to what the manuals say.
class RandomWords
{
public:
    // Of these commands.
    RandomWords(const QStringList &theCommands, quint32 seed)
        : commandWords(theCommands),
          random(seed)
    {
    }

    static inline const QStringList oddWords = [] {
        using namespace Qt::Literals::StringLiterals;
        return QStringList {u""_s,
                            u"a.v"_s,
                            u"a b"_s,
                            u"p"_s,
                            u"true"_s,
                            u"FALSE"_s,
                            u"int"_s,
                            u"string"_s,
                            u"5"_s,
                            u"-1"_s,
                            u"99999999999999999999"_s,
                            u"\"{$[\\"_s,
                            u"%1%2%9%%"_s,
                            u"\n"_s,
                            u"\0"_s,
                            u"x\0y"_s,
                            u"\u20ac\u0416"_s,
                            u"\U0001F600"_s,
                            QString(QChar(0xD800)),
                            QString(QChar(0xFFFF)),
                            u"\u0001"_s,
                            u"/"_s,
                            u"."_s,
                            u".."_s,
                            u"~"_s,
                            u"../../x"_s,
                            u"files"_s,
                            u"//share/x"_s,
                            u"C:\\x"_s,
                            u"$HOME"_s,
                            u"${}"_s,
                            u"::"_s,
                            u"a::b"_s,
                            u"get"_s,
                            QString(5000, u'x')};
    }();

    QStringList draw()
    {
        const QString word = commandWords[number(commandWords.size())];
        QStringList call {word};
        QStringList forms;
        for (const commands::Command &command : commands::commandSet()) {
            if (word == QLatin1StringView(command.word) && command.manual)
                forms = command.manual->forms();
        }
        if (!forms.isEmpty() && number(10) > 0)
            call += forms[number(forms.size())].split(QLatin1Char(' '));
        for (qsizetype more = number(10) > 0 ? number(6) : number(60); more > 0; --more)
            call += oddWords[number(oddWords.size())];
        return call;
    }

private:
    qsizetype number(qsizetype below) { return random.bounded(int(below)); }

    const QStringList commandWords;
    QRandomGenerator random;
};
