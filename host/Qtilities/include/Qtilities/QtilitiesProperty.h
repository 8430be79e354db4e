#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QString>
#include <QVariant>

namespace Qtilities::Core {

// A named value with two flags. Not valid as long as its name is empty or its value invalid.
class QTILITIES_EXPORT QtilitiesProperty
{
public:
    QtilitiesProperty() = default;
    QtilitiesProperty(const QString &name, const QVariant &value);

    // A value of the named type parsed from text: bool, int, uint, double, string, or the Qt name
    // of the same (QString). Types are exact; a bool is true or false in any case; an invalid
    // variant when the text does not parse as the type or is out of its range.
    static QVariant constructVariant(const QString &type, const QString &value);

    // The type word that constructVariant takes for a value; "string" for all it does not know.
    static QString typeName(const QVariant &value);

    bool isValid() const { return !propertyName.isEmpty() && propertyValue.isValid(); }
    QString name() const { return propertyName; }
    QVariant value() const { return propertyValue; }
    void setValue(const QVariant &value) { propertyValue = value; }

    bool isReadOnly() const { return readOnly; }
    void setReadOnly(bool flag) { readOnly = flag; }
    bool isRemovable() const { return removable; }
    void setRemovable(bool flag) { removable = flag; }

    bool operator==(const QtilitiesProperty &) const = default;

private:
    QString propertyName;
    QVariant propertyValue;
    bool readOnly = false;
    bool removable = true;
};

} // namespace Qtilities::Core
