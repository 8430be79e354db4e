// What can be added to designs.

#include "app/calls/HostCall.h"
#include "app/designs/adding.h"
#include "app/designs/DesignTree.h"
#include "app/designs/PropertyDialog.h"
#include "app/designs/RowAction.h"
#include "app/journal/journaling.h"

#include <MorvalenCore/EditorManager.h>
#include <Qtilities/categorytext.h>
#include <Qtilities/statuslog.h>

#include <QDir>
#include <QFileDialog>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::EditorManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Logging::Logger;
using Qtilities::Logging::logStatus;

namespace {

// Where a user looks for files of a node: the design's folder of the same name, if there is one.
QString folderFor(const TreeRow &row)
{
    const QString folder = row.design()->workingFolderPath();
    const QString own = folder + u'/' + row.name;
    return !row.name.isEmpty() && QFileInfo(own).isDir() ? own : folder;
}

bool hasFolder(const RowCall &call)
{
    return !call.first().design()->workingFolderPath().isEmpty();
}

void addFiles(const RowCall &call)
{
    const TreeRow row = call.first();
    adding::addPaths(
        row,
        QFileDialog::getOpenFileNames(call.window(), DesignTree::tr("Add Files"), folderFor(row)),
        call.window());
}

void addNewFile(const RowCall &call)
{
    const TreeRow row = call.first();
    const QString path =
        QFileDialog::getSaveFileName(call.window(), DesignTree::tr("Add New File"), folderFor(row),
                                     QString(), nullptr, QFileDialog::DontConfirmOverwrite);
    if (!path.isEmpty() && adding::addNewFile(row, path, call.window()))
        logStatus(EditorManager::instance()
                      ->tryCreateEditorForPath(path, QString(), true, false)
                      .status(),
                  Logger::Warning);
}

void addFolder(const RowCall &call)
{
    const TreeRow row = call.first();
    const QString path = QFileDialog::getExistingDirectory(
        call.window(), DesignTree::tr("Add Folder"), row.design()->workingFolderPath());
    if (!path.isEmpty())
        adding::addPaths(row, {path}, call.window());
}

void addProperty(const RowCall &call)
{
    const TreeRow row = call.first();
    PropertyDialog dialog(PropertyDialog::DesignProperty, call.window());
    if (dialog.exec() != QDialog::Accepted || !row.isThere())
        return;
    HostCall attempt(call.window(), DesignTree::tr("Not Added"));
    const auto added = row.design()->tryAddProperty(dialog.name(), dialog.category(),
                                                    dialog.value(), dialog.isReadOnly());
    if (attempt.take(added.status()))
        journaling::propertyAdded(*row.design(), dialog.name(), dialog.value(),
                                  Qtilities::Core::textOf(dialog.category()), dialog.isReadOnly());
}

void paste(const RowCall &call) { call.tree.paste(call.first()); }

bool canPaste(const RowCall &call) { return call.tree.canPaste(call.first()); }

constexpr unsigned needs = RowAction::OneRow | RowAction::Writable;
constexpr unsigned fileParents =
    rowBit(RowKind::Design) | rowBit(RowKind::Files) | rowBit(RowKind::Node);

constexpr RowAction actions[] = {
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Add &Files..."),
     .kinds = fileParents,
     .needs = needs | RowAction::Separated,
     .run = addFiles,
     .isPossible = hasFolder,
     .key = Qt::Key_Insert},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Add &New File..."),
     .kinds = fileParents,
     .needs = needs,
     .run = addNewFile,
     .isPossible = hasFolder,
     .icon = ActionIcon::NewPage},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Pas&te"),
     .kinds = fileParents,
     .needs = needs,
     .run = paste,
     .isPossible = canPaste,
     .key = Qt::CTRL | Qt::Key_V,
     .icon = ActionIcon::Paste},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Add F&older..."),
     .kinds = rowBit(RowKind::Design) | rowBit(RowKind::Folders),
     .needs = needs,
     .run = addFolder,
     .isPossible = hasFolder},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Add Proper&ty..."),
     .kinds = rowBit(RowKind::Design) | rowBit(RowKind::Properties),
     .needs = needs,
     .run = addProperty},
};

} // namespace

std::span<const RowAction> rowactions::ofGroups() { return actions; }
