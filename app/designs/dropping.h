#pragma once

#include "app/designs/TreeRow.h"

#include <QStringList>

class QMimeData;

// Files and folders of this machine that are dropped on rows of the tree.
namespace dropping {

QStringList mimeTypes();

// Whether rows of a kind ever take them, and whether this row takes these now.
bool takesFiles(RowKind kind);
bool mayDrop(const QMimeData &data, const TreeRow &target);

QStringList paths(const QMimeData &data);

} // namespace dropping
