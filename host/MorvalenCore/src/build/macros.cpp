#include "build/macros.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

// Far more than a system takes as a command.
constexpr qsizetype longestText = 4 << 20;
constexpr int mostReplacements = 100'000;

bool isNameCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u'-';
}

// One text being expanded; remembers which macros it is inside of.
class Expansion
{
public:
    explicit Expansion(const MacroScope &known) : scope(known) { }

    Status append(QStringView text)
    {
        for (qsizetype at = 0; at < text.size();) {
            const qsizetype dollar = text.indexOf(u"$("_s, at);
            const Status before = take(text.sliced(at, plainSize(text, at, dollar)));
            if (dollar < 0 || !before.isOk())
                return before;
            const bool isEscaped = dollar > at && text[dollar - 1] == u'$';
            at = isEscaped ? dollar + 2 : endOfName(text, dollar + 2);
            const Status put = isEscaped ? take(u"$(") : replace(text.sliced(dollar, at - dollar));
            if (!put.isOk())
                return put;
        }
        return {};
    }

    QString result;

private:
    // What comes through as it is; dollar is where the next opening stands, or negative.
    static qsizetype plainSize(QStringView text, qsizetype at, qsizetype dollar)
    {
        if (dollar < 0)
            return text.size() - at;
        return dollar > at && text[dollar - 1] == u'$' ? dollar - 1 - at : dollar - at;
    }

    // Behind the closing bracket, or behind the opening one when no name stands between them.
    static qsizetype endOfName(QStringView text, qsizetype begin)
    {
        qsizetype end = begin;
        while (end < text.size() && isNameCharacter(text[end]))
            ++end;
        return end > begin && end < text.size() && text[end] == u')' ? end + 1 : begin;
    }

    Status take(QStringView text)
    {
        result += text;
        return result.size() <= longestText ? Status() : tooMuch();
    }

    // A reference with its brackets, or just the opening of something else.
    Status replace(QStringView reference)
    {
        if (reference.size() == 2)
            return take(reference);
        const QString name = reference.sliced(2, reference.size() - 3).toString();
        const auto own = scope.step.constFind(name);
        if (own != scope.step.constEnd())
            return take(*own);
        const auto other = scope.others->constFind(name);
        if (other == scope.others->constEnd())
            return take(reference);
        if (inside.contains(name))
            return Status::invalidArgument(u"The macro \"%1\" refers to itself"_s.arg(name));
        if (++replacements > mostReplacements)
            return tooMuch();
        inside.append(name);
        const Status status = append(*other);
        inside.removeLast();
        return status;
    }

    Status tooMuch() const
    {
        return Status::invalidArgument(
            inside.isEmpty() ? u"The text is too long"_s
                             : u"The macro \"%1\" grows too long"_s.arg(inside.first()));
    }

    const MacroScope &scope;
    QStringList inside;
    int replacements = 0;
};

} // namespace

Result<QString> expandMacros(const QString &text, const MacroScope &scope)
{
    if (!text.contains(u"$("_s))
        return text;
    Expansion expansion(scope);
    const Status status = expansion.append(text);
    return status.isOk() ? Result<QString>(expansion.result) : status;
}

} // namespace MorvalenCore
