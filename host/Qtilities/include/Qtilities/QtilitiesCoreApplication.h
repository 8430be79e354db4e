#pragma once

#include <Qtilities/ObjectManager.h>

namespace Qtilities::Core {

// The parts of the application that need no window. Static operations only.
class QTILITIES_EXPORT QtilitiesCoreApplication
{
public:
    QtilitiesCoreApplication() = delete;

    // The object manager: the one that was set, else one made on first use.
    static ObjectManager *objectManager();

    // Replaces the object manager, which stays the caller's; null brings the default back.
    static void setObjectManager(ObjectManager *manager);
};

} // namespace Qtilities::Core
