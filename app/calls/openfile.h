#pragma once

#include <Qtilities/Status.h>

#include <QString>

// Opens a component or a project file, and any other text in an editor; which of them it is, its
// first bytes tell. What is called XML is never a text. The log says it too when something is wrong
// with it.
Qtilities::Core::Status openFile(const QString &file);

// Makes the open design of a component file the active one; false when it is not open.
bool activateOpen(const QString &file);

// Whether the file is a project's, by its first bytes.
bool isProjectFile(const QString &path);

// Whether the file is neither a component's nor a project's, but one for an editor.
bool isTextFile(const QString &path);
