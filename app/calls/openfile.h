#pragma once

#include <QString>

// Opens a component or a project file; which of them it is, its first bytes tell. False when it
// cannot be opened, with the reason in the log.
bool openFile(const QString &file);

// Whether the file is a project's, by its first bytes.
bool isProjectFile(const QString &path);
