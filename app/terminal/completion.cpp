#include "app/terminal/completion.h"

#include "commands/commandmanuals.h"
#include "ensemble/manuals.h"
#include "interp/tcltext.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

using namespace Qt::Literals::StringLiterals;
using commands::CommandManual;

namespace completion {

namespace {

// The words of the command that is being typed, the last one perhaps empty.
QStringList wordsOf(const QString &text)
{
    qsizetype begin = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (u"[{;\n"_s.contains(text[i]))
            begin = i + 1;
    }
    QStringList words = text.sliced(begin).simplified().split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty() || text.back().isSpace())
        words.append(QString());
    return words;
}

QStringList commandNames(Tcl_Interp *interp)
{
    Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    QStringList names;
    if (Tcl_EvalEx(interp, "info commands", -1, TCL_EVAL_GLOBAL) == TCL_OK) {
        int count = 0;
        Tcl_Obj **elements = nullptr;
        Tcl_ListObjGetElements(nullptr, Tcl_GetObjResult(interp), &count, &elements);
        for (int i = 0; i < count; ++i)
            names.append(tcltext::fromTcl(Tcl_GetString(elements[i])));
    }
    Tcl_RestoreInterpState(interp, state);
    return names;
}

// The words of a usage line that are typed as they stand; those of arguments are names. A second
// word is an argument's where all calls that begin alike have the same one.
QStringList subcommands(const QStringList &words)
{
    QSet<QString> firsts;
    QSet<QString> seconds;
    for (const CommandManual &manual : commands::commandManuals()) {
        if (manual.word != words.first())
            continue;
        for (const commands::ManualCall &call : manual.calls) {
            const QStringList parts = call.call.simplified().split(u' ');
            firsts.insert(parts.first());
            if (parts.size() > 1 && parts.first() == words.value(1) && !parts[1].startsWith(u'\''))
                seconds.insert(parts[1]);
        }
    }
    if (words.size() == 2)
        return firsts.values();
    return words.size() == 3 && seconds.size() > 1 ? seconds.values() : QStringList();
}

QStringList files(const QString &typed)
{
    const qsizetype slash = typed.lastIndexOf(u'/') + 1;
    QStringList names;
    const QString folder = typed.first(slash);
    const QDir dir(folder.isEmpty() ? u"."_s : folder);
    for (const QFileInfo &info :
         dir.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name))
        names.append(folder + info.fileName() + (info.isDir() ? u"/"_s : QString()));
    return names;
}

QStringList thatBegin(QStringList words, const QString &typed)
{
    words.removeIf([&typed](const QString &word) { return !word.startsWith(typed); });
    words.sort();
    return words;
}

} // namespace

LineEditor::Completions complete(Tcl_Interp *interp, const QString &text)
{
    const QStringList words = wordsOf(text);
    const QString &typed = words.last();
    if (words.size() == 1)
        return {typed.size(),
                typed.isEmpty() ? QStringList() : thatBegin(commandNames(interp), typed)};
    QStringList found = thatBegin(ensemble::nextWords(words.first(words.size() - 1)), typed);
    if (found.isEmpty())
        found = thatBegin(subcommands(words), typed);
    return {typed.size(), found.isEmpty() ? thatBegin(files(typed), typed) : found};
}

} // namespace completion
