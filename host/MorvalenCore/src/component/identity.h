#pragma once

#include "component/ComponentTree.h"
#include "document/DesignField.h"

#include <Qtilities/Status.h>

#include <QString>

namespace MorvalenCore {

// Where the texts lie that a component has once.
namespace IdentityFields {

QString text(const ComponentTree &tree, DesignField field);
Qtilities::Core::Status setText(ComponentTree &tree, DesignField field, const QString &text);

// An attribute of mv:design; an empty value removes it.
void setDesignAttribute(ComponentTree &tree, QByteArrayView attribute, const QString &value);

} // namespace IdentityFields

namespace IdentityCheck {

// A component must have a name; what else is wrong with its identity are remarks. Texts read
// "PATH:LINE: reason".
Qtilities::Core::Status check(const ComponentTree &tree, const QString &path);

} // namespace IdentityCheck
} // namespace MorvalenCore
