#pragma once

#include <MorvalenCore/ItemGrouping.h>

namespace MorvalenCore {

// What to clean.
struct DesignCleanParameters
{
    ItemGrouping grouping;
};

} // namespace MorvalenCore
