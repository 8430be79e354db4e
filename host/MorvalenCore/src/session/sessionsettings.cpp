#include "session/sessionsettings.h"

#include "log/hostlog.h"

#include <MorvalenCore/settingkeys.h>
#include <Qtilities/QtilitiesApplication.h>
#include <Qtilities/SettingsFile.h>
#include <Qtilities/statuslog.h>

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::SettingsFile;
using Qtilities::Core::Status;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::logStatus;

namespace MorvalenCore {

namespace {

// The session's settings; the log says why they cannot be used or written, once.
class SessionSettings : public SettingsFile
{
public:
    SessionSettings() { logOnce(status()); }

    Status writeAndLog()
    {
        const Status written = write();
        logOnce(written);
        return written.isOk() ? Status() : written;
    }

private:
    static void logOnce(const Status &status)
    {
        static QString lastFailure;
        if (status.isOk() || status.text() != lastFailure)
            logStatus(status);
        lastFailure = status.text();
    }
};

Status write(const QString &key, const QVariant &value)
{
    SessionSettings settings;
    settings.set(key, value);
    return settings.writeAndLog();
}

QVariant read(const QString &key)
{
    sessionSettingsFile();
    return SessionSettings().value(key);
}

} // namespace

QString sessionFolder(const QString &name)
{
    return QDir::cleanPath(QtilitiesApplication::applicationSessionPath() + u'/' + name);
}

QString sessionSettingsFile()
{
    const QString file = QtilitiesApplication::settingsFileName();
    if (!SessionSettings().status().isOk() || QFileInfo::exists(file))
        return file;
    if (!QDir().mkpath(QFileInfo(file).path())
        || !write(SettingKeys::vendor, SettingKeys::firstVendor).isOk())
        logWarning(u"The settings file \"%1\" cannot be written"_s.arg(file));
    return file;
}

QString readSetting(const QString &key) { return read(key).toString(); }

QStringList readSettings(const QString &key) { return read(key).toStringList(); }

Status writeSetting(const QString &key, const QString &value)
{
    sessionSettingsFile();
    return write(key, value);
}

Status writeSettings(const QString &key, const QStringList &values)
{
    sessionSettingsFile();
    return write(key, values);
}

} // namespace MorvalenCore
