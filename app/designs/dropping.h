#pragma once

#include "app/designs/TreeRow.h"

#include <QStringList>

class QMimeData;

// Files and folders of this machine that are dropped on rows of the tree.
namespace dropping {

QStringList mimeTypes();

// Files of this tree: their paths, for other programs, and a mark by which the tree knows them.
QMimeData *dataOf(const QList<TreeRow> &files);
// Whether the tree of this process has made the data last.
bool isOwn(const QMimeData &data);

// Whether rows of a kind ever take them, and whether this row takes these now.
bool takesFiles(RowKind kind);
bool mayDrop(const QMimeData &data, const TreeRow &target);

QStringList paths(const QMimeData &data);

} // namespace dropping
