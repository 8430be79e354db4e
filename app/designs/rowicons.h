#pragma once

#include "app/designs/TreeRow.h"

#include <QIcon>

// Small pictures for the rows of the tree of open designs, drawn in the colours of the palette, at
// any size.
namespace rowicons {

QIcon icon(RowKind kind, bool isMissing);

} // namespace rowicons
