#include "app/designs/RemovalUndo.h"

#include "app/calls/HostCall.h"
#include "app/designs/DesignTree.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/IDesignEditing.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::Interfaces::IDesign;
using MorvalenCore::Interfaces::IDesignEditing;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

IDesign *openDesign(const RemovalUndo::Item &item)
{
    const TreeRow row {RowKind::Design, item.design, {}, {}, false};
    return row.isThere() ? row.design() : nullptr;
}

Status restore(IDesignEditing &editing, const RemovalUndo::Item &item)
{
    if (item.kind == u"files"_s)
        return editing.tryRestoreFile(item.word);
    return item.kind == u"folders"_s ? editing.tryRestoreFolder(item.word)
                                     : editing.tryRestoreProperty(item.word);
}

} // namespace

void RemovalUndo::add(const QList<Item> &items)
{
    if (!items.isEmpty())
        removals.append(items);
}

bool RemovalUndo::isEmpty() const
{
    return std::none_of(removals.cbegin(), removals.cend(), [](const QList<Item> &items) {
        return std::any_of(items.cbegin(), items.cend(), openDesign);
    });
}

void RemovalUndo::undo(QWidget *window)
{
    QList<Item> items;
    while (items.isEmpty() && !removals.isEmpty()) {
        items = removals.takeLast();
        items.removeIf([](const Item &item) { return !openDesign(item); });
    }
    HostCall attempt(window, DesignTree::tr("Not Brought Back"));
    std::reverse(items.begin(), items.end());
    for (const Item &item : std::as_const(items)) {
        const IDesign *design = openDesign(item);
        auto *editing = qobject_cast<IDesignEditing *>(item.design.data());
        if (editing && attempt.takeAndLog(restore(*editing, item), Logger::Warning))
            journaling::itemRestored(*design, item.kind, item.word);
    }
}
