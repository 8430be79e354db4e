#include "app/designs/RowAction.h"

#include "app/designs/DesignTree.h"

#include <QSet>

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

// Rows can be many, their designs are few.
bool RowAction::isEnabled(const RowCall &call) const
{
    const auto isGone = [](const TreeRow &row) { return row.isItem() && !row.item; };
    if (std::any_of(call.rows.begin(), call.rows.end(), isGone))
        return false;
    QSet<const QObject *> checked;
    for (const TreeRow &row : call.rows) {
        if (checked.contains(row.designObject))
            continue;
        checked.insert(row.designObject);
        if (!row.isThere() || ((needs & Writable) != 0 && row.design()->isReadOnly()))
            return false;
    }
    return !isPossible || isPossible(call);
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
    for (const auto table : {ofDesigns(), ofGroups(), ofItems(), ofConfigurations(), ofAllRows()}) {
        for (const RowAction &action : table) {
            if (action.isFor(rows))
                actions.append(&action);
        }
    }
    return actions;
}

const RowAction *rowactions::forKey(const QList<TreeRow> &rows, QKeyCombination key)
{
    const QList<const RowAction *> all = forRows(rows);
    const auto found = std::find_if(all.cbegin(), all.cend(), [key](const RowAction *action) {
        return action->key != Qt::Key_unknown && action->key == key;
    });
    return found == all.cend() ? nullptr : *found;
}

QList<IDesign *> rowactions::designsOf(const QList<TreeRow> &rows)
{
    QList<IDesign *> designs;
    QSet<const QObject *> checked;
    for (const TreeRow &row : rows) {
        if (checked.contains(row.designObject))
            continue;
        checked.insert(row.designObject);
        if (TreeRow {RowKind::Design, row.designObject, {}, {}, false}.isThere())
            designs.append(row.design());
    }
    return designs;
}
