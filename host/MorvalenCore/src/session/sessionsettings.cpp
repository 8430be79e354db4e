#include "session/sessionsettings.h"

#include "log/hostlog.h"

#include <Qtilities/QtilitiesApplication.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::Literals::StringLiterals;
using Qtilities::CoreGui::QtilitiesApplication;

namespace MorvalenCore {

namespace {

bool write(const QString &file, const QString &group, const QString &key, const QString &value)
{
    QSettings settings(file, QSettings::IniFormat);
    settings.setValue(group + u'/' + key, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace

QString sessionFolder(const QString &name)
{
    return QDir::cleanPath(QtilitiesApplication::applicationSessionPath() + u'/' + name);
}

QString sessionSettingsFile()
{
    const QString file = QtilitiesApplication::settingsFileName();
    if (QFileInfo::exists(file))
        return file;
    if (!QDir().mkpath(QFileInfo(file).path())
        || !write(file, u"Designs/Environment"_s, u"organization_name"_s, u"local"_s))
        logWarning(u"The settings file \"%1\" cannot be written"_s.arg(file));
    return file;
}

QString readSetting(const QString &group, const QString &key)
{
    return QSettings(sessionSettingsFile(), QSettings::IniFormat)
        .value(group + u'/' + key)
        .toString();
}

bool writeSetting(const QString &group, const QString &key, const QString &value)
{
    return write(sessionSettingsFile(), group, key, value);
}

} // namespace MorvalenCore
