#pragma once

#include <Qtilities/QtilitiesExport.h>

#include <QString>

namespace Qtilities::Core {

// The name of an item in a factory: its tag, and a category for people to find it by.
struct FactoryItemID
{
    QString tag;
    QString category;

    bool operator==(const FactoryItemID &) const = default;
};

} // namespace Qtilities::Core
