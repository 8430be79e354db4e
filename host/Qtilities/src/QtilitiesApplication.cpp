#include <Qtilities/QtilitiesApplication.h>

namespace Qtilities::CoreGui {

QtilitiesApplication::QtilitiesApplication(int &argc, char **argv) : QApplication(argc, argv) { }

} // namespace Qtilities::CoreGui
