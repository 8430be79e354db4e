#pragma once

#include "app/designs/TreeRow.h"

#include <QWidget>

// Files of designs that a user gives other names and places. What is refused, the user is told.
namespace arranging {

// Gives a file another name, in its folder: on disk, in its design and where build configurations
// name it. An editor that shows it follows.
void rename(const TreeRow &file, const QString &name, QWidget *window);

// Whether there is something to do: a row takes these files from elsewhere.
bool mayMove(const QList<TreeRow> &files, const TreeRow &target);

// Moves files to the node of a row. Those of other designs go from there, unless they are to stay,
// when the row's design has taken them. Nothing on disk changes.
void move(const QList<TreeRow> &files, const TreeRow &target, bool stay, QWidget *window);

} // namespace arranging
