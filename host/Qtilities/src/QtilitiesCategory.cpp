#include <Qtilities/QtilitiesCategory.h>

namespace Qtilities::Core {

QtilitiesCategory::QtilitiesCategory(const QStringList &levels) : names(levels)
{
    names.removeAll(QString());
}

QtilitiesCategory QtilitiesCategory::fromString(const QString &text, const QString &separator)
{
    if (separator.isEmpty())
        return QtilitiesCategory(QStringList(text));
    return QtilitiesCategory(text.split(separator));
}

QString QtilitiesCategory::toString(const QString &separator) const
{
    return names.join(separator);
}

bool QtilitiesCategory::contains(const QtilitiesCategory &other) const
{
    return other.names.size() >= names.size()
        && std::equal(names.cbegin(), names.cend(), other.names.cbegin());
}

} // namespace Qtilities::Core
