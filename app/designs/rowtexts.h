#pragma once

#include "app/designs/TreeRow.h"

#include <MorvalenCore/AbstractDesignLinkedItem.h>

#include <QStringList>

#include <optional>

// The columns of the tree of open designs.
enum TreeColumn { NameColumn, DetailsColumn, StateColumn, VersionControlColumn, TreeColumnCount };

// What the rows of the tree of open designs say. A row whose design or item is gone says nothing.
namespace rowtexts {

QString header(int column);

// count is the number of items below the row.
QString name(const TreeRow &row);
QString details(const TreeRow &row, int count);
QString versionControl(const std::optional<MorvalenCore::LinkedItemState> &state);
// One word for each thing that is special; what is not known yet is left out.
QStringList states(const TreeRow &row, const std::optional<MorvalenCore::LinkedItemState> &state);
// What the mouse tells.
QString toolTip(const TreeRow &row);

// How commands call the kind of an item, and the item: "files" and its path, "properties" and its
// name.
QString kindWord(const TreeRow &row);
QString itemWord(const TreeRow &row);

} // namespace rowtexts
