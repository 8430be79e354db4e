#include "session/sessionsettings.h"

#include "log/hostlog.h"

#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/settingsfile.h>
#include <Qtilities/statuslog.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

namespace {

// Whether QSettings may open the file; the log says why it may not, once.
bool isSecured(const QString &file)
{
    static QString lastFailure;
    const Status status = Qtilities::Core::secureSettingsFile(file);
    if (status.isOk() || status.text() != lastFailure)
        logStatus(status);
    lastFailure = status.text();
    return status.isOk();
}

bool write(const QString &file, const QString &group, const QString &key, const QVariant &value)
{
    if (!isSecured(file))
        return false;
    QSettings settings(file, QSettings::IniFormat);
    settings.setValue(group + u'/' + key, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

QVariant read(const QString &group, const QString &key)
{
    const QString file = sessionSettingsFile();
    return isSecured(file) ? QSettings(file, QSettings::IniFormat).value(group + u'/' + key)
                           : QVariant();
}

} // namespace

QString sessionFolder(const QString &name)
{
    return QDir::cleanPath(QtilitiesApplication::applicationSessionPath() + u'/' + name);
}

QString sessionSettingsFile()
{
    const QString file = QtilitiesApplication::settingsFileName();
    if (!isSecured(file) || QFileInfo::exists(file))
        return file;
    if (!QDir().mkpath(QFileInfo(file).path())
        || !write(file, u"Designs/Environment"_s, u"organization_name"_s, u"local"_s))
        logWarning(u"The settings file \"%1\" cannot be written"_s.arg(file));
    return file;
}

QString readSetting(const QString &group, const QString &key)
{
    return read(group, key).toString();
}

QStringList readSettings(const QString &group, const QString &key)
{
    return read(group, key).toStringList();
}

bool writeSetting(const QString &group, const QString &key, const QString &value)
{
    return write(sessionSettingsFile(), group, key, value);
}

bool writeSettings(const QString &group, const QString &key, const QStringList &values)
{
    return write(sessionSettingsFile(), group, key, values);
}

} // namespace MorvalenCore
