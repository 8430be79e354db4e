#pragma once

#include <QString>

namespace MorvalenCore {

// The settings of the session. A new settings file is made with the default vendor in it.
QString sessionSettingsFile();

// The path of a folder of the session, absolute; it need not be there.
QString sessionFolder(const QString &name);

// Reads and writes one value in the session's settings. writeSetting is false when the file could
// not be written.
QString readSetting(const QString &group, const QString &key);
bool writeSetting(const QString &group, const QString &key, const QString &value);

} // namespace MorvalenCore
