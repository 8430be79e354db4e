// What can be done with any rows.

#include "app/designs/DesignTree.h"
#include "app/designs/DesignTreeView.h"
#include "app/designs/RowAction.h"
#include "app/designs/rowtexts.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>

namespace {

void copyNames(const RowCall &call)
{
    QStringList names;
    for (const TreeRow &row : call.rows)
        names.append(rowtexts::name(row));
    QGuiApplication::clipboard()->setText(names.join(QLatin1Char('\n')));
}

void fold(const RowCall &call) { call.tree.treeView()->setUnfolded(call.rows, false); }

void unfold(const RowCall &call) { call.tree.treeView()->setUnfolded(call.rows, true); }

constexpr unsigned branches = rowBit(RowKind::Design) | rowBit(RowKind::Files)
    | rowBit(RowKind::Node) | rowBit(RowKind::Folders) | rowBit(RowKind::Properties)
    | rowBit(RowKind::Builds);
constexpr unsigned all = branches | rowBit(RowKind::File) | rowBit(RowKind::Folder)
    | rowBit(RowKind::Property) | rowBit(RowKind::Configuration);

constexpr RowAction actions[] = {
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Copy &Names"),
     .kinds = all,
     .needs = RowAction::Separated,
     .run = copyNames},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "E&xpand All"), .kinds = branches, .run = unfold},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Co&llapse All"), .kinds = branches, .run = fold},
};

} // namespace

std::span<const RowAction> rowactions::ofAllRows() { return actions; }
