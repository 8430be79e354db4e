#include "component/EditCheck.h"

#include "component/xmltext.h"

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace MorvalenCore {

EditCheck &EditCheck::isThere(bool there, QStringView what)
{
    if (refusal.isOk() && !there)
        refusal = Status::notFound(u"The %1 is no longer in the document."_s.arg(what));
    return *this;
}

EditCheck &EditCheck::isGiven(const QString &text, QStringView what)
{
    if (refusal.isOk() && text.isEmpty())
        refusal = Status::invalidArgument(u"The %1 must not be empty."_s.arg(what));
    return *this;
}

EditCheck &EditCheck::isCarried(std::initializer_list<QStringView> texts)
{
    for (const QStringView text : texts) {
        if (refusal.isOk())
            refusal = XmlText::checkCarried(text);
    }
    return *this;
}

} // namespace MorvalenCore
