#include "app/session/Session.h"

#include "app/session/Settings.h"

#include <MorvalenCore/settingkeys.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <filesystem>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
namespace SettingKeys = MorvalenCore::SettingKeys;
using Qtilities::Core::Status;

namespace {

const QStringList subfolders {u"/Scripts"_s, u"/Projects"_s, u"/Designs"_s, u"/Backups"_s,
                              u"/Logs"_s};

// The system's reason why the folder cannot be used; empty when it can.
QString makeFolder(const QString &path)
{
    const std::filesystem::path folder(QFile::encodeName(path).toStdString());
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error && !std::filesystem::is_directory(folder, error) && !error)
        error = std::make_error_code(std::errc::not_a_directory);
    if (!error && ::access(folder.c_str(), R_OK | W_OK | X_OK) != 0)
        error.assign(errno, std::generic_category());
    return error ? QString::fromStdString(error.message()) : QString();
}

// New settings start with the vendor of new designs.
bool makeSettings(const QString &path)
{
    if (QFile::exists(path))
        return true;
    Settings settings(path);
    settings.set(SettingKeys::vendor, SettingKeys::firstVendor);
    return settings.isWritten();
}

} // namespace

QString Session::defaultFolder()
{
    if (qEnvironmentVariableIsEmpty("HOME") && qEnvironmentVariableIsEmpty("XDG_DATA_HOME"))
        return QString();
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

Status Session::prepare(const QString &folder)
{
    const QString message = u"cannot use the session folder %1: %2"_s;
    QStringList paths {folder};
    for (const QString &name : subfolders)
        paths.append(folder + name);
    for (const QString &path : paths) {
        const QString reason = makeFolder(path);
        if (!reason.isEmpty())
            return Status::io(message.arg(path, reason));
    }
    const QString settings = folder + u"/settings.ini"_s;
    return makeSettings(settings)
        ? Status()
        : Status::io(message.arg(settings, u"the settings cannot be written"_s));
}
