#pragma once

#include <Qtilities/Status.h>

#include <QHash>
#include <QString>

namespace MorvalenCore {

// Macros: "$(NAME)" stands for the value of the macro NAME, in commands, paths and in the values
// of macros. "$(NAME)" without such a macro stays as it is, for the shell; "$$(" stands for "$(".

// Where macros are looked up: those of a step first, then the others.
struct MacroScope
{
    // Taken as they are: a file's name may look like a macro.
    QHash<QString, QString> step;
    const QHash<QString, QString> *others;
};

// The text with its macros expanded. Fails when a macro refers to itself or the text grows beyond
// all reason.
Qtilities::Core::Result<QString> expandMacros(const QString &text, const MacroScope &scope);

} // namespace MorvalenCore
