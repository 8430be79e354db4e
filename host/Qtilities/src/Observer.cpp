#include <Qtilities/Observer.h>

namespace Qtilities::Core {

Observer::Observer(const QString &name, QObject *parent) : QObject(parent) { setObjectName(name); }

Observer::~Observer() = default;

} // namespace Qtilities::Core
