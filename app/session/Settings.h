#pragma once

#include <Qtilities/SettingsFile.h>

// The settings of the session as the window uses them: the log says what is wrong with the file.
class Settings : public Qtilities::Core::SettingsFile
{
public:
    // The file is the session's unless another one is named.
    Settings();
    explicit Settings(const QString &file);
};
