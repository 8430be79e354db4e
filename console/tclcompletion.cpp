#include "console/tclcompletion.h"

#include "interp/tcltext.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace tclcompletion {

namespace {

// The elements of the list that a command answers; none when it fails.
QStringList ask(Tcl_Interp *interp, const QStringList &command)
{
    const Tcl_InterpState before = Tcl_SaveInterpState(interp, TCL_OK);
    Tcl_Obj *const call = Tcl_NewListObj(0, nullptr);
    Tcl_IncrRefCount(call);
    for (const QString &word : command)
        Tcl_ListObjAppendElement(nullptr, call,
                                 Tcl_NewStringObj(tcltext::toTcl(word).constData(), -1));
    QStringList answer;
    int count = 0;
    Tcl_Obj **elements = nullptr;
    if (Tcl_EvalObjEx(interp, call, TCL_EVAL_GLOBAL) == TCL_OK
        && Tcl_ListObjGetElements(nullptr, Tcl_GetObjResult(interp), &count, &elements) == TCL_OK) {
        for (int i = 0; i < count; ++i)
            answer.append(tcltext::fromTcl(Tcl_GetString(elements[i])));
    }
    Tcl_DecrRefCount(call);
    Tcl_RestoreInterpState(interp, before);
    return answer;
}

// A pattern for names that begin with a text.
QString patternOf(const QString &start)
{
    static const QRegularExpression special(uR"(([\\*?\[\]]))"_s);
    return QString(start).replace(special, uR"(\\1)"_s) + u'*';
}

QStringList beginningWith(const QStringList &names, const QString &start)
{
    QStringList found;
    for (const QString &name : names) {
        if (name.startsWith(start))
            found.append(name);
    }
    found.removeDuplicates();
    found.sort();
    return found;
}

QStringList arrayElements(Tcl_Interp *interp, const QString &array, const QString &start)
{
    QStringList found;
    for (const QString &name : ask(interp, {u"array"_s, u"names"_s, array, patternOf(start)}))
        found.append(name + u')');
    return beginningWith(found, start);
}

QStringList variables(Tcl_Interp *interp, const QString &start)
{
    QStringList names = ask(interp, {u"info"_s, u"vars"_s, patternOf(start)});
    // Names in namespaces come with the global one in front.
    if (!start.startsWith(u"::"_s))
        names.replaceInStrings(QRegularExpression(u"^::"_s), QString());
    return beginningWith(names, start);
}

QStringList ensembleSubcommands(Tcl_Interp *interp, const QString &command)
{
    const auto option = [interp, &command](const QString &name) {
        return ask(interp, {u"namespace"_s, u"ensemble"_s, u"configure"_s, command, name});
    };
    if (ask(interp, {u"namespace"_s, u"ensemble"_s, u"exists"_s, command}) != QStringList {u"1"_s})
        return {};
    if (const QStringList listed = option(u"-subcommands"_s); !listed.isEmpty())
        return listed;
    const QStringList map = option(u"-map"_s);
    QStringList names;
    for (qsizetype i = 0; i < map.size(); i += 2)
        names.append(map.at(i));
    if (!names.isEmpty())
        return names;
    const QString space = option(u"-namespace"_s).join(QString());
    for (const QString &pattern :
         ask(interp, {u"namespace"_s, u"eval"_s, space, u"namespace export"_s})) {
        const QString full = space + u"::"_s + pattern;
        for (const QString &name : ask(interp, {u"info"_s, u"commands"_s, full}))
            names.append(name.section(u"::"_s, -1));
    }
    return names;
}

QString unquoted(QString word) { return word.replace(u"\\ "_s, u" "_s); }

QString quoted(QString name)
{
    static const QRegularExpression special(uR"(([\s\\$\[\]{}";]))"_s);
    return name.replace(special, uR"(\\1)"_s);
}

// Folders end with a slash. Hidden files are candidates only for a word that asks for them.
QStringList files(const QString &word)
{
    const QString typed = unquoted(word);
    const QString folder = typed.first(typed.lastIndexOf(u'/') + 1);
    const QString start = typed.sliced(folder.size());
    QDir::Filters filters = QDir::AllEntries | QDir::NoDotAndDotDot;
    if (start.startsWith(u'.'))
        filters |= QDir::Hidden;
    QStringList found;
    const QDir dir(folder.isEmpty() ? u"."_s : folder);
    for (const QFileInfo &info : dir.entryInfoList(filters)) {
        if (info.fileName().startsWith(start))
            found.append(quoted(folder + info.fileName()) + (info.isDir() ? u"/"_s : QString()));
    }
    found.sort();
    return found;
}

// What stands before the cursor in the command that it is in.
struct Spot
{
    QStringList words; // in front of the one that is completed
    QString word;
};

Spot spotOf(const QString &text)
{
    static const QRegularExpression opening(u"[[{;\n]"_s);
    static const QRegularExpression blank(uR"((?<!\\)\s)"_s);
    const QString command = text.sliced(text.lastIndexOf(opening) + 1);
    const qsizetype begin = command.lastIndexOf(blank) + 1;
    return {command.first(begin).split(blank, Qt::SkipEmptyParts), command.sliced(begin)};
}

} // namespace

QStringList suggest(Tcl_Interp *interp, const QString &text, QString &prefix,
                    const NextWords &nextWords)
{
    static const QRegularExpression element(uR"(\$([\w:]+)\(([^()\s]*)$)"_s);
    static const QRegularExpression variable(uR"(\$\{?([\w:]*)$)"_s);
    const auto behind = [&text, &prefix](const QString &word) {
        prefix = text.chopped(word.size());
        return word;
    };
    if (const auto match = element.match(text); match.hasMatch())
        return arrayElements(interp, match.captured(1), behind(match.captured(2)));
    if (const auto match = variable.match(text); match.hasMatch())
        return variables(interp, behind(match.captured(1)));
    const Spot spot = spotOf(text);
    behind(spot.word);
    if (spot.words.isEmpty())
        return {};
    QStringList names = nextWords ? nextWords(spot.words) : QStringList();
    if (names.isEmpty() && spot.words.size() == 1)
        names = ensembleSubcommands(interp, spot.words.constFirst());
    const QStringList found = beginningWith(names, spot.word);
    return found.isEmpty() ? files(spot.word) : found;
}

} // namespace tclcompletion
