#include "build/macros.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

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

    bool append(QStringView text)
    {
        for (qsizetype at = 0; at < text.size();) {
            const qsizetype dollar = text.indexOf(u"$("_s, at);
            if (dollar < 0)
                return take(text.sliced(at));
            if (dollar > at && text[dollar - 1] == u'$') {
                if (!take(text.sliced(at, dollar - 1 - at)) || !take(u"$("))
                    return false;
                at = dollar + 2;
                continue;
            }
            const qsizetype end = endOfName(text, dollar + 2);
            if (!take(text.sliced(at, dollar - at)) || !replace(text.sliced(dollar, end - dollar)))
                return false;
            at = end;
        }
        return true;
    }

    QString result;
    QString error;

private:
    // Behind the closing bracket, or behind the opening one when no name stands between them.
    static qsizetype endOfName(QStringView text, qsizetype begin)
    {
        qsizetype end = begin;
        while (end < text.size() && isNameCharacter(text[end]))
            ++end;
        return end > begin && end < text.size() && text[end] == u')' ? end + 1 : begin;
    }

    bool take(QStringView text)
    {
        result += text;
        return result.size() <= longestText || tooMuch();
    }

    // A reference with its brackets, or just the opening of something else.
    bool replace(QStringView reference)
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
        if (inside.contains(name)) {
            error = u"The macro \"%1\" refers to itself"_s.arg(name);
            return false;
        }
        if (++replacements > mostReplacements)
            return tooMuch();
        inside.append(name);
        const bool good = append(*other);
        inside.removeLast();
        return good;
    }

    bool tooMuch()
    {
        error = inside.isEmpty() ? u"The text is too long"_s
                                 : u"The macro \"%1\" grows too long"_s.arg(inside.first());
        return false;
    }

    const MacroScope &scope;
    QStringList inside;
    int replacements = 0;
};

} // namespace

bool expandMacros(QString *text, const MacroScope &scope, QString *error)
{
    if (!text->contains(u"$("_s))
        return true;
    Expansion expansion(scope);
    if (!expansion.append(*text)) {
        *error = expansion.error;
        return false;
    }
    *text = expansion.result;
    return true;
}

} // namespace MorvalenCore
