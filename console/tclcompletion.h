#pragma once

#include <QStringList>

#include <functional>

#include <tcl.h>

// Completes words behind a command's name. The interpreter's result stays as it was.
namespace tclcompletion {

// The words that may come next in a command, of which these are there already. For commands whose
// subcommands the interpreter does not know.
using NextWords = std::function<QStringList(const QStringList &words)>;

// The candidates for the word at the end of text, sorted: variables behind a dollar sign, elements
// of arrays behind a parenthesis, what nextWords says, subcommands of ensembles, and otherwise
// files. prefix receives what is in front of the word. A command begins behind the last bracket,
// brace, semicolon or line feed.
QStringList suggest(Tcl_Interp *interp, const QString &text, QString &prefix,
                    const NextWords &nextWords);

} // namespace tclcompletion
