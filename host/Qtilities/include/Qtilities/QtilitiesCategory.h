#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QString>
#include <QStringList>

namespace Qtilities::Core {

// A hierarchical name, top level first. Empty levels are dropped. Names are compared with case.
class QTILITIES_EXPORT QtilitiesCategory
{
public:
    QtilitiesCategory() = default;
    explicit QtilitiesCategory(const QStringList &levels);

    // text split at every separator, which may have more than one character; an empty separator
    // splits nothing.
    static QtilitiesCategory fromString(const QString &text, const QString &separator);

    QStringList levels() const { return names; }
    bool isEmpty() const { return names.isEmpty(); }

    // The levels joined by the separator; empty for the empty category.
    QString toString(const QString &separator) const;

    // True for this category itself and for everything below it; the empty one contains all.
    bool contains(const QtilitiesCategory &other) const;

    bool operator==(const QtilitiesCategory &) const = default;

private:
    QStringList names;
};

} // namespace Qtilities::Core
