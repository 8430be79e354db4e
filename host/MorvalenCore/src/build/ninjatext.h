#pragma once

#include <QByteArray>
#include <QString>

namespace MorvalenCore {

// Texts as Ninja's files want them.

// Appends a path of a build statement. It must not hold a line break or a zero, and the file must
// give the variable "pipe" the value "|", which cannot be written otherwise.
void appendNinjaPath(QByteArray *text, const QString &path);

// Appends the value of a variable, which must not hold a line break or a zero.
void appendNinjaValue(QByteArray *text, const QString &value);

// Ninja's name of a pool, which is a word; those of the settings are anything.
QByteArray ninjaPool(const QString &name);

// Appends the statement that makes a pool known.
void appendNinjaPool(QByteArray *text, const QString &name, int depth);

} // namespace MorvalenCore
