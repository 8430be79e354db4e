#include "app/session/Settings.h"

#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/settingsfile.h>
#include <Qtilities/statuslog.h>

namespace {

const QString &secured(const QString &file)
{
    Qtilities::Logging::logStatus(Qtilities::Core::secureSettingsFile(file));
    return file;
}

} // namespace

Settings::Settings() : Settings(Qtilities::CoreGui::QtilitiesApplication::settingsFileName()) { }

Settings::Settings(const QString &file) : settings(secured(file), QSettings::IniFormat) { }

void Settings::set(const QString &key, const QVariant &value)
{
    if (value.isValid())
        settings.setValue(key, value);
    else
        settings.remove(key);
}

bool Settings::isWritable()
{
    settings.sync();
    return settings.status() == QSettings::NoError && settings.isWritable();
}
