#include <Qtilities/SharedProperty.h>
#include <Qtilities/utf8text.h>

namespace Qtilities::Core {

namespace {

// The name as text, or empty when it is not UTF-8: what cannot be turned back is no name.
QString exactName(const char *name)
{
    const QString text = textOfUtf8(name);
    return text.toUtf8() == QByteArrayView(name) ? text : QString();
}

} // namespace

SharedProperty::SharedProperty(const char *name, const QVariant &value)
    : QtilitiesProperty(exactName(name), value)
{
}

} // namespace Qtilities::Core
