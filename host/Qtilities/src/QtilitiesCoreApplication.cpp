#include <Qtilities/QtilitiesCoreApplication.h>
#include <Qtilities/Replaceable.h>

namespace Qtilities::Core {

namespace {

Replaceable<ObjectManager> &slot()
{
    static auto *const theSlot = new Replaceable<ObjectManager>;
    return *theSlot;
}

} // namespace

ObjectManager *QtilitiesCoreApplication::objectManager() { return slot().get(); }

void QtilitiesCoreApplication::setObjectManager(ObjectManager *manager) { slot().set(manager); }

} // namespace Qtilities::Core
