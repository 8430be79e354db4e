#include "app/session/Settings.h"

#include <Qtilities/QtilitiesApplication.h>

Settings::Settings() : Settings(Qtilities::CoreGui::QtilitiesApplication::settingsFileName()) { }

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
