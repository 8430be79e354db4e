#include "app/session/Settings.h"

#include <Qtilities/statuslog.h>

#include <utility>

using Qtilities::Core::Status;
using Qtilities::Logging::logStatus;

namespace {

// Whether anything was not written.
bool hasFailed = false;

} // namespace

Settings::Settings() { logStatus(status()); }

Settings::Settings(const QString &file) : SettingsFile(file) { logStatus(status()); }

Settings::~Settings() { writeAndLog(); }

bool Settings::isWritten()
{
    writeAndLog();
    return !std::exchange(hasFailed, false);
}

void Settings::writeAndLog()
{
    const Status written = write();
    // What keeps it from being read has been said.
    if (written.text() != status().text() || written.isOk())
        logStatus(written);
    hasFailed |= !written.isOk();
}
