#pragma once

#include <Qtilities/Status.h>

#include <QString>

// Opens a component or a project file; which of them it is, its first bytes tell. The log says it
// too when something is wrong with it.
Qtilities::Core::Status openFile(const QString &file);

// Whether the file is a project's, by its first bytes.
bool isProjectFile(const QString &path);
