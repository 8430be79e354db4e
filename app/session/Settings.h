#pragma once

#include <Qtilities/SettingsFile.h>

// The settings of the session as the window uses them: what is set is written when the object goes,
// and the log says what is wrong with the file.
class Settings : public Qtilities::Core::SettingsFile
{
    Q_DISABLE_COPY_MOVE(Settings)

public:
    // The file is the session's unless another one is named.
    Settings();
    explicit Settings(const QString &file);
    ~Settings();

    // Writes, and tells whether all that was set since the last call, here and elsewhere, is in the
    // file.
    bool isWritten();

private:
    void writeAndLog();
};
