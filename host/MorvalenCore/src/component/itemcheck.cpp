#include "component/itemcheck.h"

#include <QString>

using namespace Qt::Literals::StringLiterals;

namespace MorvalenCore::ItemCheck {

bool isThere(bool there, QStringView what, QString *error)
{
    if (!there && error != nullptr)
        *error = u"The %1 is no longer in the document."_s.arg(what);
    return there;
}

bool isGiven(const QString &text, QStringView what, QString *error)
{
    if (text.isEmpty() && error != nullptr)
        *error = u"The %1 must not be empty."_s.arg(what);
    return !text.isEmpty();
}

} // namespace MorvalenCore::ItemCheck
