#include <Qtilities/LogLinks.h>

namespace Qtilities::CoreGui {

namespace {

LogLinks *theInstance = nullptr;

} // namespace

LogLinks::~LogLinks()
{
    if (theInstance == this)
        theInstance = nullptr;
}

LogLinks *LogLinks::instance() { return theInstance; }

void LogLinks::setInstance(LogLinks *links) { theInstance = links; }

} // namespace Qtilities::CoreGui
