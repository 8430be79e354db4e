#pragma once

#include "app/designs/RemovalUndo.h"
#include "app/designs/RowAction.h"

// Items that a user takes out of their designs, or deletes from disk. The user is asked first, and
// told what was refused. Rows that are gone are left out.
namespace deleting {

bool areRemovable(const RowCall &call);
// What was removed can be brought back by the undo.
void removeFromDesigns(const QList<TreeRow> &rows, RemovalUndo &undo, QWidget *window);

// Files and folders. What is deleted goes from its design too; what cannot be deleted stays there.
void deleteFromDisk(const QList<TreeRow> &rows, QWidget *window);

} // namespace deleting
