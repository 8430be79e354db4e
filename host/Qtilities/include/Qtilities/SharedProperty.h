#pragma once

#include <Qtilities/QtilitiesProperty.h>

#include <QMetaType>

namespace Qtilities::Core {

// A property attached to an object through ObjectManager, where every part of the program that
// knows the object finds it. It is kept as the object's dynamic property of the same name; setting
// that to an invalid variant removes it.
class QTILITIES_EXPORT SharedProperty : public QtilitiesProperty
{
public:
    SharedProperty() = default;
    SharedProperty(const char *name, const QVariant &value);
};

} // namespace Qtilities::Core

Q_DECLARE_METATYPE(Qtilities::Core::SharedProperty)
