#include "app/designs/RowAction.h"

#include "app/designs/DesignTree.h"

#include <algorithm>

using MorvalenCore::Interfaces::IDesign;

QWidget *RowCall::window() const { return tree.window(); }

bool RowAction::isFor(const QList<TreeRow> &rows) const
{
    if (rows.isEmpty() || ((needs & OneRow) != 0 && rows.size() > 1))
        return false;
    return std::all_of(rows.begin(), rows.end(),
                       [this](const TreeRow &row) { return (rowBit(row.kind) & kinds) != 0; });
}

bool RowAction::isEnabled(const RowCall &call) const
{
    const auto allows = [this](const TreeRow &row) {
        return row.isThere() && ((needs & Writable) == 0 || !row.design()->isReadOnly());
    };
    return std::all_of(call.rows.begin(), call.rows.end(), allows)
        && (!isPossible || isPossible(call));
}

void RowAction::runOn(const RowCall &call) const
{
    RowCall there {call.rows, call.tree};
    there.rows.removeIf([](const TreeRow &row) { return !row.isThere(); });
    if (!there.rows.isEmpty() && isEnabled(there))
        run(there);
}

QList<const RowAction *> rowactions::forRows(const QList<TreeRow> &rows)
{
    QList<const RowAction *> actions;
    for (const auto table : {ofDesigns(), ofGroups(), ofItems(), ofConfigurations()}) {
        for (const RowAction &action : table) {
            if (action.isFor(rows))
                actions.append(&action);
        }
    }
    return actions;
}

QList<IDesign *> rowactions::designsOf(const QList<TreeRow> &rows)
{
    QList<IDesign *> designs;
    for (const TreeRow &row : rows) {
        IDesign *design = row.isThere() ? row.design() : nullptr;
        if (design && !designs.contains(design))
            designs.append(design);
    }
    return designs;
}
