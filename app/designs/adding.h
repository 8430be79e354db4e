#pragma once

#include "app/designs/TreeRow.h"

#include <QStringList>
#include <QWidget>

// Files and folders that a user adds to a design.
namespace adding {

// Adds what lies on disk under these absolute paths: files to the node of the row, or to the one
// that the design chooses when the row is no node; folders as folders. What is refused, the user
// is told. Nothing when the design is gone.
void addPaths(const TreeRow &row, const QStringList &paths, QWidget *window);

// The node that a row is, or is in; empty for others.
QString nodeOf(const TreeRow &row);

// Adds a file and makes it, empty, on disk, unless it is there already. False, and the user is
// told, when that cannot be.
bool addNewFile(const TreeRow &row, const QString &path, QWidget *window);

} // namespace adding
