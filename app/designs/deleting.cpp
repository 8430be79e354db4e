#include "app/designs/deleting.h"

#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/designs/DesignTree.h"
#include "app/designs/rowtexts.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"
#include "app/messages/questions.h"

#include <QDir>

using MorvalenCore::DesignFile;
using MorvalenCore::DesignFolder;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::Logging::Logger;

namespace {

QString pathOf(const TreeRow &row)
{
    const auto *item = qobject_cast<const TreeFileItem *>(row.item.data());
    return item ? item->actualPath() : QString();
}

Status removeFromDesign(const TreeRow &row)
{
    IDesign &design = *row.design();
    switch (row.kind) {
    case RowKind::File:
        return design.tryRemoveFile(pathOf(row));
    case RowKind::Folder:
        return design.tryRemoveFolder(pathOf(row));
    default:
        return design.tryRemoveProperty(row.property()->getName());
    }
}

// Removes it and tells the journal of it.
Status removeAndTell(const TreeRow &row)
{
    const QString item = rowtexts::itemWord(row);
    const Status removed = removeFromDesign(row);
    if (removed.isOk())
        journaling::itemRemoved(*row.design(), rowtexts::kindWord(row), item);
    return removed;
}

Status removeFromComputer(const TreeRow &row, bool permanently)
{
    if (DesignFile *file = row.file())
        return file->tryRemoveFromComputer(permanently);
    return row.folder()->tryRemoveFromComputer(permanently);
}

bool isRemovable(const TreeRow &row)
{
    return !row.property() || row.property()->propertyData().isRemovable();
}

} // namespace

bool deleting::areRemovable(const RowCall &call)
{
    return std::all_of(call.rows.begin(), call.rows.end(), isRemovable);
}

void deleting::removeFromDesigns(const QList<TreeRow> &rows, RemovalUndo &undo, QWidget *window)
{
    QStringList names;
    for (const TreeRow &row : rows)
        names.append(row.property() ? rowtexts::name(row) : QDir::toNativeSeparators(pathOf(row)));
    if (!questions::mayRemove(window, names))
        return;
    HostCall attempt(window, DesignTree::tr("Not Removed"));
    QList<RemovalUndo::Item> removed;
    for (const TreeRow &row : rows) {
        if (!row.isThere())
            continue;
        const RemovalUndo::Item item {row.designObject, rowtexts::kindWord(row),
                                      rowtexts::itemWord(row)};
        if (attempt.takeAndLog(removeAndTell(row), Logger::Warning))
            removed.append(item);
    }
    undo.add(removed);
}

void deleting::deleteFromDisk(const QList<TreeRow> &rows, QWidget *window)
{
    QStringList paths;
    for (const TreeRow &row : rows)
        paths.append(QDir::toNativeSeparators(pathOf(row)));
    const questions::Deletion how = questions::howToDelete(
        window, DesignTree::tr("Delete this from disk, and remove it from the design?"), paths);
    if (how == questions::Deletion::None)
        return;
    // Nothing is deleted under the hands of a script, which may have begun meanwhile.
    if (const Status free = running::check(); !free.isOk()) {
        messages::warn(window, DesignTree::tr("Not Deleted"), {free.text()});
        return;
    }
    HostCall attempt(window, DesignTree::tr("Not Deleted"));
    for (qsizetype i = 0; i < rows.size(); ++i) {
        const TreeRow &row = rows[i];
        // What has another path by now is not what the user agreed to.
        if (!row.isThere() || QDir::toNativeSeparators(pathOf(row)) != paths[i])
            continue;
        const bool deleted = attempt.takeAndLog(
            removeFromComputer(row, how == questions::Deletion::Permanent), Logger::Warning);
        if (!deleted || !row.isThere())
            continue;
        if (how == questions::Deletion::ToTrash) {
            journaling::remark(DesignTree::tr("\"%1\" went to the trash").arg(paths[i]));
            attempt.takeAndLog(removeAndTell(row), Logger::Warning);
        } else {
            journaling::itemDeleted(*row.design(), rowtexts::kindWord(row), pathOf(row));
            attempt.takeAndLog(removeFromDesign(row), Logger::Warning);
        }
    }
}
