#pragma once

#include <QString>

namespace Qtilities::ProjectManagement {

// One thing that a project holds, by its file.
struct ProjectEntry
{
    // Absolute and clean.
    QString path;
    // Whether it is the active one of its kind.
    bool active = false;
    // Where it stands in the project file; 0 for what comes from no file.
    int line = 0;
};

} // namespace Qtilities::ProjectManagement
