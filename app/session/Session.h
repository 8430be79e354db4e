#pragma once

#include <Qtilities/Status.h>

// The session folder: what the user's scripts, projects and designs are kept in, with the settings
// beside them. Several processes may use one folder at a time.
class Session
{
public:
    // The folder that is used when none is named: the platform's place for application data. Empty
    // without a home, where there is no such place.
    static QString defaultFolder();

    // Makes the folder, its subfolders and its settings file where they are missing. A failure says
    // which path cannot be used and why.
    static Qtilities::Core::Status prepare(const QString &folder);
};
