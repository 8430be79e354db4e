#include "build/shell.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore {

namespace {

bool needsNoQuotes(QChar c)
{
    const char16_t u = c.unicode();
    return (u >= u'a' && u <= u'z') || (u >= u'A' && u <= u'Z') || (u >= u'0' && u <= u'9')
        || QStringView(u"_-./+,:=@%").contains(c) || u > 0x7f;
}

bool isControl(QChar c) { return c.unicode() < 0x20 && c != u'\t'; }

// Words that only a shell understands where a program's name stands.
bool isShellWord(const QString &word)
{
    static const QSet<QString> words = {
        u"!"_s,      u"."_s,     u":"_s,       u"["_s,        u"{"_s,      u"alias"_s,  u"break"_s,
        u"case"_s,   u"cd"_s,    u"command"_s, u"eval"_s,     u"exec"_s,   u"exit"_s,   u"export"_s,
        u"for"_s,    u"if"_s,    u"read"_s,    u"readonly"_s, u"return"_s, u"set"_s,    u"shift"_s,
        u"source"_s, u"test"_s,  u"times"_s,   u"trap"_s,     u"type"_s,   u"ulimit"_s, u"umask"_s,
        u"unset"_s,  u"until"_s, u"wait"_s,    u"while"_s};
    return words.contains(word);
}

// Whether a character outside of single quotes makes the command more than a program with its
// arguments.
bool isMeta(QStringView command, qsizetype at, bool inDoubleQuotes)
{
    const QChar c = command[at];
    if (c == u'`' || (c == u'$' && command.sliced(at + 1).startsWith(u'(')))
        return true;
    return !inDoubleQuotes && QStringView(u";&|<>()#\n\r").contains(c);
}

} // namespace

QString shellWord(const QString &text)
{
    if (!text.isEmpty() && std::all_of(text.cbegin(), text.cend(), needsNoQuotes))
        return text;
    return u'\'' + QString(text).replace(u'\'', u"'\\''"_s) + u'\'';
}

QString shellWords(const QStringList &texts)
{
    QString words;
    for (const QString &text : texts) {
        if (!words.isEmpty())
            words += u' ';
        words += shellWord(text);
    }
    return words;
}

bool isPlainCommand(const QString &command)
{
    static const QRegularExpression firstWord(u"^[ \\t]*([^ \\t]*)"_s);
    static const QRegularExpression assignment(u"^[A-Za-z_][A-Za-z_0-9]*="_s);
    const QString word = firstWord.match(command).captured(1);
    if (word.isEmpty() || isShellWord(word) || assignment.match(word).hasMatch())
        return false;

    bool inSingleQuotes = false;
    bool inDoubleQuotes = false;
    qsizetype at = 0;
    for (; at < command.size(); ++at) {
        const QChar c = command[at];
        if (inSingleQuotes)
            inSingleQuotes = c != u'\'';
        else if (c == u'\\')
            ++at;
        else if (c == u'"')
            inDoubleQuotes = !inDoubleQuotes;
        else if (c == u'\'' && !inDoubleQuotes)
            inSingleQuotes = true;
        else if (isMeta(command, at, inDoubleQuotes))
            return false;
    }
    // Nothing is open that would take up what is put behind it.
    return !inSingleQuotes && !inDoubleQuotes && at == command.size();
}

QString asOneProgram(const QString &command)
{
    return isPlainCommand(command) ? command : u"/bin/sh -c "_s + shellWord(command);
}

QString launched(const QString &command, const QString &launcher)
{
    if (launcher.isEmpty())
        return command;
    return launcher + u' ' + asOneProgram(command);
}

QString inOneLine(const QString &command)
{
    if (std::none_of(command.cbegin(), command.cend(), isControl))
        return command;
    QString format;
    for (const QChar c : command) {
        if (isControl(c))
            format += u"\\%1"_s.arg(c.unicode(), 3, 8, QChar(u'0'));
        else if (c == u'\\' || c == u'%')
            format += QString(2, c);
        else
            format += c;
    }
    return u"eval \"$(printf -- "_s + shellWord(format) + u")\""_s;
}

} // namespace MorvalenCore
