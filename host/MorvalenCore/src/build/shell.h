#pragma once

#include <QString>
#include <QStringList>

namespace MorvalenCore {

// Command lines for the POSIX shell.

// The text as one word.
QString shellWord(const QString &text);

// The texts as words, separated by blanks.
QString shellWords(const QStringList &texts);

// Whether a command is one program with its arguments: no pipe, list, redirection, substitution,
// assignment or built-in, so that another program can be put in front of it.
bool isPlainCommand(const QString &command);

// The command as it is when it is a plain one, else a shell of its own with it.
QString asOneProgram(const QString &command);

// The command as one program with a launcher in front; as it is when the launcher is empty.
QString launched(const QString &command, const QString &launcher);

// The same command without line breaks and other control characters in its text.
QString inOneLine(const QString &command);

} // namespace MorvalenCore
