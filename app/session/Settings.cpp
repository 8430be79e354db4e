#include "app/session/Settings.h"

#include <Qtilities/statuslog.h>

Settings::Settings() { Qtilities::Logging::logStatus(status()); }

Settings::Settings(const QString &file) : SettingsFile(file)
{
    Qtilities::Logging::logStatus(status());
}
