#include "interp/errorstack.h"

#include "interp/ScriptRuns.h"
#include "interp/tcltext.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace errorstack {

namespace {

Receiver &theReceiver()
{
    static Receiver receiver;
    return receiver;
}

Script *innermost = nullptr;

constexpr qsizetype mostEvaluated = 100;

// The files whose content was evaluated as a text, the last one first.
QStringList &evaluated()
{
    static auto *const files = new QStringList;
    return *files;
}

void noteEvaluated(const QString &file)
{
    evaluated().removeAll(file);
    evaluated().prepend(file);
    evaluated().resize(qMin(evaluated().size(), mostEvaluated));
}

// Keeps a Tcl value alive.
class Value
{
public:
    explicit Value(Tcl_Obj *value) : object(value) { Tcl_IncrRefCount(object); }
    explicit Value(const QString &text) : Value(fromText(tcltext::toTcl(text))) { }
    ~Value() { Tcl_DecrRefCount(object); }
    Q_DISABLE_COPY_MOVE(Value)

    operator Tcl_Obj *() const { return object; }

    // The entry of a dictionary; an empty text when there is none.
    QString entry(const QString &key) const
    {
        Tcl_Obj *found = nullptr;
        Tcl_DictObjGet(nullptr, object, Value(key), &found);
        return found ? tcltext::fromTcl(Tcl_GetString(found)) : QString();
    }

private:
    static Tcl_Obj *fromText(const QByteArray &bytes)
    {
        return Tcl_NewStringObj(bytes.constData(), int(bytes.size()));
    }

    Tcl_Obj *object;
};

// Of the content of a file Tcl knows a text, so that the file that has the body now is looked for.
std::optional<Place> bodyInEvaluated(Tcl_Interp *interp, const QString &procedure)
{
    const Value command(Tcl_NewListObj(0, nullptr));
    for (const QString &word : {u"::info"_s, u"body"_s, procedure})
        Tcl_ListObjAppendElement(nullptr, command, Value(word));
    if (evaluated().isEmpty() || Tcl_EvalObjEx(interp, command, TCL_EVAL_GLOBAL) != TCL_OK)
        return {};
    const QString body = u'{' + tcltext::result(interp) + u'}';
    for (const QString &path : std::as_const(evaluated())) {
        QFile file(path);
        // A pipe in its place would be waited for.
        if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
            continue;
        const QString content = QString::fromUtf8(file.readAll());
        const qsizetype found = content.indexOf(body);
        if (found >= 0)
            return Place {path, int(QStringView(content).first(found).count(u'\n')) + 1};
    }
    return {};
}

// Tcl keeps it with the compiled body.
std::optional<Place> bodyOf(Tcl_Interp *interp, const QString &procedure)
{
    const Value command(Tcl_NewListObj(0, nullptr));
    for (const QString &word : {u"::tcl::unsupported::getbytecode"_s, u"proc"_s, procedure})
        Tcl_ListObjAppendElement(nullptr, command, Value(word));
    if (Tcl_EvalObjEx(interp, command, TCL_EVAL_GLOBAL) != TCL_OK)
        return {};
    const Value code(Tcl_GetObjResult(interp));
    const QString file = code.entry(u"sourcefile"_s);
    if (file.isEmpty())
        return bodyInEvaluated(interp, procedure);
    return Place {file, code.entry(u"initiallinenumber"_s).toInt()};
}

QString withPlaces(Tcl_Interp *interp, const QString &stack)
{
    static const QRegularExpression level(uR"re(^    \(procedure "(.+)" line (\d+)\)$)re"_s,
                                          QRegularExpression::MultilineOption);
    QString result;
    qsizetype end = 0;
    for (auto at = level.globalMatch(stack); at.hasNext();) {
        const QRegularExpressionMatch match = at.next();
        result += QStringView(stack).sliced(end, match.capturedEnd() - end);
        end = match.capturedEnd();
        if (const std::optional<Place> place = bodyOf(interp, match.captured(1))) {
            const int line = place->line + match.captured(2).toInt() - 1;
            result.chop(1);
            result += u", file \"%1\" line %2)"_s.arg(place->file, QString::number(line));
        }
    }
    result += QStringView(stack).sliced(end);
    return result;
}

// Tcl names a file as "source" was given it, which leads nowhere from another folder.
QString withPaths(const QString &stack)
{
    static const QRegularExpression level(uR"re(^    \(file "([^/"].*)" line \d+\)$)re"_s,
                                          QRegularExpression::MultilineOption);
    QString result;
    qsizetype end = 0;
    for (auto at = level.globalMatch(stack); at.hasNext();) {
        const QRegularExpressionMatch match = at.next();
        const QFileInfo file(match.captured(1));
        result += QStringView(stack).sliced(end, match.capturedStart(1) - end);
        result += file.exists() ? file.absoluteFilePath() : match.captured(1);
        end = match.capturedEnd(1);
    }
    result += QStringView(stack).sliced(end);
    return result;
}

} // namespace

QString text(Tcl_Interp *interp, int code, const QString &file)
{
    const Value options(Tcl_GetReturnOptions(interp, code));
    const QString message = tcltext::result(interp);
    QString stack = options.entry(u"-errorinfo"_s);
    // A script may have given the stack another beginning.
    if (!stack.startsWith(message))
        stack = message + u'\n' + stack;
    stack = withPaths(stack);
    if (!file.isEmpty())
        stack += u"\n    (file \"%1\" line %2)"_s.arg(file, options.entry(u"-errorline"_s));
    const ScriptRuns::PassBlocker blocker;
    Tcl_InterpState state = Tcl_SaveInterpState(interp, code);
    stack = withPlaces(interp, stack);
    Tcl_RestoreInterpState(interp, state);
    return stack;
}

std::optional<Place> placeOf(Tcl_Interp *interp, const QString &procedure)
{
    Tcl_InterpState state = Tcl_SaveInterpState(interp, TCL_OK);
    std::optional<Place> place = bodyOf(interp, procedure);
    Tcl_RestoreInterpState(interp, state);
    return place;
}

QString currentScript() { return innermost ? innermost->name() : QString(); }

void setReceiver(Receiver receiver) { theReceiver() = std::move(receiver); }

void tell(Tcl_Interp *interp, int code)
{
    if (!theReceiver())
        return;
    const QString stack = text(interp, code, innermost ? innermost->file : QString());
    if (innermost)
        innermost->told = stack;
    theReceiver()(stack);
}

Script::Script(const QString &name) : file(name), outer(innermost)
{
    innermost = this;
    noteEvaluated(file);
}

Script::~Script() { innermost = outer; }

} // namespace errorstack
