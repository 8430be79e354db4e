#pragma once

#include <QString>

// The session folder: what the user's scripts, projects and designs are kept in, with the settings
// beside them. Several processes may use one folder at a time.
class Session
{
public:
    // The folder that is used when none is named: the platform's place for application data. Empty
    // without a home, where there is no such place.
    static QString defaultFolder();

    // Makes the folder, its subfolders and its settings file where they are missing. False when
    // the folder cannot be used; *error says which path and why, without a final line feed.
    static bool prepare(const QString &folder, QString *error);
};
