#pragma once

#include "component/ComponentTree.h"
#include "document/DesignField.h"

#include <Qtilities/Status.h>

#include <QString>
#include <QStringList>

namespace MorvalenCore {

// Where the texts lie that a component has once.
namespace IdentityFields {

QString text(const ComponentTree &tree, DesignField field);
Qtilities::Core::Status setText(ComponentTree &tree, DesignField field, const QString &text);

// An attribute of mv:design; an empty value removes it.
void setDesignAttribute(ComponentTree &tree, QByteArrayView attribute, const QString &value);

} // namespace IdentityFields

// What is wrong with a component's identity.
struct IdentityFindings
{
    // The component has no name.
    QString error;
    QStringList warnings;
};

namespace IdentityCheck {

// Texts read "PATH:LINE: reason".
IdentityFindings check(const ComponentTree &tree, const QString &path);

} // namespace IdentityCheck
} // namespace MorvalenCore
