#include "designs/designname.h"

#include <QChar>
#include <QList>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

bool mayBegin(char32_t letter) { return letter == U'_' || QChar::isLetter(letter); }

bool mayFollow(char32_t letter)
{
    return mayBegin(letter) || QChar::isDigit(letter) || letter == U'-' || letter == U'.';
}

// A character as it can be shown in a message.
QString shown(char32_t letter)
{
    if (QChar::isPrint(letter))
        return u'"' + QString::fromUcs4(&letter, 1) + u'"';
    return u"U+%1"_s.arg(QString::number(letter, 16).toUpper(), 4, u'0');
}

} // namespace

Status checkSpelling(const QString &designName)
{
    if (designName.isEmpty())
        return Status::invalidArgument(u"A design's name cannot be empty"_s);
    const QList<uint> letters = designName.toUcs4();
    if (!mayBegin(letters.first()))
        return Status::invalidArgument(
            u"The design name \"%1\" begins with %2 instead of a letter or \"_\""_s.arg(
                designName, shown(letters.first())));
    for (const char32_t letter : letters) {
        if (!mayFollow(letter))
            return Status::invalidArgument(
                u"The design name \"%1\" holds %2, which is no letter, digit, \"_\", \"-\" or \".\""_s
                    .arg(designName, shown(letter)));
    }
    return {};
}

} // namespace MorvalenCore
