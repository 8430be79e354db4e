#pragma once

#include <Qtilities/Status.h>

#include <QString>
#include <QStringList>

namespace MorvalenCore {

// The settings of the session. A new settings file is made with the default vendor in it.
QString sessionSettingsFile();

// The path of a folder of the session, absolute; it need not be there.
QString sessionFolder(const QString &name);

// Read and write one value in the session's settings, or a list of values. The log has said why
// nothing was read or written.
QString readSetting(const QString &key);
Qtilities::Core::Status writeSetting(const QString &key, const QString &value);
QStringList readSettings(const QString &key);
Qtilities::Core::Status writeSettings(const QString &key, const QStringList &values);

} // namespace MorvalenCore
