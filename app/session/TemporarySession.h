#pragma once

#include <QString>

// A session folder for a run that has no home. When the process ends, what the program itself keeps
// there goes; a folder that holds anything else stays.
class TemporarySession
{
public:
    // The folder's path; empty, with the reason in *error, when it cannot be made.
    static QString make(QString *error);
};
