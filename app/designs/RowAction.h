#pragma once

#include "app/designs/TreeRow.h"
#include "app/drawing/actionicons.h"

#include <QKeySequence>
#include <QList>
#include <QWidget>

#include <span>

class DesignTree;

// Kinds of rows, as bits.
constexpr unsigned rowBit(RowKind kind) { return 1U << unsigned(kind); }

// The rows that an action is about, and where it was asked for.
struct RowCall
{
    QList<TreeRow> rows;
    DesignTree &tree;

    const TreeRow &first() const { return rows.first(); }
    QWidget *window() const;
};

// What can be done with rows of the tree of open designs. All actions are rows of tables; a menu
// offers those that are for all selected rows, and keys find them too.
struct RowAction
{
    enum Need : unsigned {
        NoNeed = 0,
        OneRow = 1,
        // None of the designs is read-only.
        Writable = 2,
        // Begins a new part of the menu.
        Separated = 4
    };

    // Source text of the translation.
    const char *text = nullptr;
    unsigned kinds = 0;
    unsigned needs = NoNeed;
    void (*run)(const RowCall &call) = nullptr;
    // Null when it is always possible.
    bool (*isPossible)(const RowCall &call) = nullptr;
    QKeyCombination key = Qt::Key_unknown;
    ActionIcon icon = ActionIcon::None;

    bool isFor(const QList<TreeRow> &rows) const;
    bool isEnabled(const RowCall &call) const;
    // Runs it on those of the rows that are still there.
    void runOn(const RowCall &call) const;
};

namespace rowactions {

// The tables, in the order of the menu.
std::span<const RowAction> ofDesigns();
std::span<const RowAction> ofGroups();
std::span<const RowAction> ofItems();
std::span<const RowAction> ofConfigurations();
std::span<const RowAction> ofAllRows();

QList<const RowAction *> forRows(const QList<TreeRow> &rows);
// The one of a key; null when there is none.
const RowAction *forKey(const QList<TreeRow> &rows, QKeyCombination key);

// Each design of the rows once.
QList<MorvalenCore::Interfaces::IDesign *> designsOf(const QList<TreeRow> &rows);

} // namespace rowactions
