#pragma once

#include <QString>
#include <QStringList>

namespace MorvalenCore {

// The settings of the session. A new settings file is made with the default vendor in it.
QString sessionSettingsFile();

// The path of a folder of the session, absolute; it need not be there.
QString sessionFolder(const QString &name);

// Read and write one value in the session's settings, or a list of values. Writing is false when
// the file could not be written.
QString readSetting(const QString &key);
bool writeSetting(const QString &key, const QString &value);
QStringList readSettings(const QString &key);
bool writeSettings(const QString &key, const QStringList &values);

} // namespace MorvalenCore
