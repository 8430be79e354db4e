#pragma once

#include <Qtilities/QtilitiesCategory.h>

namespace Qtilities::Core {

// Categories as users, commands and documents write them: levels joined by "::".
inline QString levelSeparator() { return QStringLiteral("::"); }

inline QString textOf(const QtilitiesCategory &category)
{
    return category.toString(levelSeparator());
}

inline QtilitiesCategory categoryFrom(const QString &text)
{
    return QtilitiesCategory::fromString(text, levelSeparator());
}

} // namespace Qtilities::Core
