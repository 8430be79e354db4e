// What can be done with open designs.

#include "app/builds/buildcalls.h"
#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/designs/DesignDialog.h"
#include "app/designs/DesignTree.h"
#include "app/designs/RowAction.h"
#include "app/file/closing.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"
#include "app/messages/questions.h"

#include <MorvalenCore/DesignConstructor.h>
#include <MorvalenCore/DesignManager.h>

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QInputDialog>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::DesignConstructor;
using MorvalenCore::DesignManager;
using MorvalenCore::Interfaces::IDesign;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

QString idOf(const IDesign &design) { return design.id(u"."_s); }

QString nativeFolder(const IDesign &design)
{
    return QDir::toNativeSeparators(design.workingFolderPath());
}

bool hasFolder(const RowCall &call)
{
    return std::all_of(call.rows.begin(), call.rows.end(), [](const TreeRow &row) {
        return !row.design()->workingFolderPath().isEmpty();
    });
}

// Only those are deleted that the program has made a place for.
bool areOfSession(const RowCall &call)
{
    const QString designs =
        QFileInfo(DesignManager::instance()->path(DesignManager::DesignsPath)).canonicalFilePath();
    return std::all_of(call.rows.begin(), call.rows.end(), [&designs](const TreeRow &row) {
        const QString folder = QFileInfo(row.design()->workingFolderPath()).canonicalFilePath();
        return !designs.isEmpty() && folder.startsWith(designs + u'/');
    });
}

// Nothing is closed or deleted under the hands of a script.
bool isRefused(const RowCall &call, const QString &title)
{
    const Status free = running::check();
    if (!free.isOk())
        messages::warn(call.window(), title, {free.text()});
    return !free.isOk();
}

void setActive(const RowCall &call)
{
    const HostCall attempt(call.window(), DesignTree::tr("Not Activated"));
    const QString id = idOf(*call.first().design());
    DesignManager::instance()->setActiveDesign(id);
    journaling::activated(id);
}

void save(const RowCall &call)
{
    HostCall attempt(call.window(), DesignTree::tr("Not Saved"));
    for (IDesign *design : rowactions::designsOf(call.rows))
        if (attempt.take(design->trySaveToComponentFile()))
            journaling::saved(*design);
}

void saveCopy(const RowCall &call)
{
    const TreeRow row = call.first();
    const QString file = QFileDialog::getSaveFileName(call.window(), DesignTree::tr("Save a Copy"),
                                                      row.design()->workingFolderPath(),
                                                      DesignTree::tr("Components (*.xml)"));
    if (file.isEmpty() || !row.isThere())
        return;
    HostCall attempt(call.window(), DesignTree::tr("Not Saved"));
    if (attempt.takeAndLog(
            DesignManager::instance()->tryParseDesignToFile(row.design(), file, true)))
        journaling::copied(*row.design(), file);
}

// Of those that are there still.
QStringList idsOf(const QList<TreeRow> &rows)
{
    QStringList ids;
    for (const IDesign *design : rowactions::designsOf(rows))
        ids.append(idOf(*design));
    return ids;
}

void closeAll(const RowCall &call, bool deleteFolders, const QString &title)
{
    const QStringList ids = idsOf(call.rows);
    // While the user was asked, a script may have begun.
    if (isRefused(call, title) || ids.isEmpty())
        return;
    HostCall attempt(call.window(), title);
    const QList<Status> all = DesignManager::instance()->tryCloseDesigns(ids, deleteFolders);
    for (qsizetype i = 0; i < all.size(); ++i) {
        if (attempt.takeAndLog(all[i]) && i < ids.size())
            journaling::closed(ids[i], deleteFolders);
    }
}

void close(const RowCall &call)
{
    const QString title = DesignTree::tr("Not Closed");
    closing::GivenUp givenUp;
    if (!isRefused(call, title)
        && closing::settleDesigns(call.window(), idsOf(call.rows), &givenUp)
        // While the user was asked, a script may have begun.
        && !isRefused(call, title) && closing::carryOut(call.window(), givenUp))
        closeAll(call, false, title);
}

void closeAndDelete(const RowCall &call)
{
    const QString title = DesignTree::tr("Not Deleted");
    QStringList folders;
    for (const IDesign *design : rowactions::designsOf(call.rows))
        folders.append(nativeFolder(*design));
    if (!isRefused(call, title)
        && questions::mayDelete(
            call.window(),
            DesignTree::tr("Close and delete these working folders, with everything in "
                           "them, for good?"),
            folders))
        closeAll(call, true, title);
}

void rename(const RowCall &call)
{
    const TreeRow row = call.first();
    bool given = false;
    const QString name = QInputDialog::getText(call.window(), DesignTree::tr("Rename Design"),
                                               DesignTree::tr("&Name:"), QLineEdit::Normal,
                                               row.design()->name(), &given);
    if (!given || !row.isThere())
        return;
    HostCall attempt(call.window(), DesignTree::tr("Not Renamed"));
    const QString oldId = idOf(*row.design());
    if (attempt.take(DesignManager::instance()->tryDesignName(name, row.design()))
        && attempt.takeAndLog(row.design()->trySetName(name), Logger::Warning))
        journaling::identity(*row.design(), oldId, u"name"_s, name);
}

void showProperties(const RowCall &call)
{
    auto *dialog = new DesignDialog(call.first(), call.window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}

void clean(const RowCall &call) { buildcalls::clean(call.first().design(), false, call.window()); }

void cleanAllVersions(const RowCall &call)
{
    buildcalls::clean(call.first().design(), true, call.window());
}

void assignFolder(const RowCall &call)
{
    HostCall attempt(call.window(), DesignTree::tr("No Working Folder Assigned"));
    if (attempt.takeAndLog(DesignConstructor::tryAssignPhysicalWorkingFolderToDesign(
            call.first().design(), QString())))
        journaling::remark(
            DesignTree::tr("The design \"%1\" got the working folder \"%2\"")
                .arg(idOf(*call.first().design()), call.first().design()->workingFolderPath()));
}

void openFolder(const RowCall &call)
{
    for (const IDesign *design : rowactions::designsOf(call.rows))
        messages::showFolder(design->workingFolderPath());
}

void copyId(const RowCall &call)
{
    QGuiApplication::clipboard()->setText(idsOf(call.rows).join(u'\n'));
}

constexpr unsigned designs = rowBit(RowKind::Design);

constexpr RowAction actions[] = {
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Set &Active"),
     .kinds = designs,
     .needs = RowAction::OneRow,
     .run = setActive,
     .isPossible = [](const RowCall &call) { return !call.first().active; }},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Save"),
     .kinds = designs,
     .needs = RowAction::Separated,
     .run = save,
     .isPossible = hasFolder,
     .icon = ActionIcon::Save},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Save a Cop&y..."),
     .kinds = designs,
     .needs = RowAction::OneRow,
     .run = saveCopy},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Clean &Generated Files..."),
     .kinds = designs,
     .needs = RowAction::OneRow | RowAction::Writable | RowAction::Separated,
     .run = clean},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Clean Generated Files of All &Versions..."),
     .kinds = designs,
     .needs = RowAction::OneRow | RowAction::Writable,
     .run = cleanAllVersions},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Assign a &Working Folder"),
     .kinds = designs,
     .needs = RowAction::OneRow,
     .run = assignFolder,
     .isPossible = [](const RowCall &call) { return !hasFolder(call); }},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Open in File &Manager"),
     .kinds = designs,
     .needs = RowAction::Separated,
     .run = openFolder,
     .isPossible = hasFolder,
     .icon = ActionIcon::OpenFolder},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Copy &Id"),
     .kinds = designs,
     .run = copyId,
     .key = Qt::CTRL | Qt::Key_C},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Rename..."),
     .kinds = designs,
     .needs = RowAction::OneRow | RowAction::Writable | RowAction::Separated,
     .run = rename,
     .key = Qt::Key_F2,
     .icon = ActionIcon::Rename},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Properties of the Design..."),
     .kinds = designs,
     .needs = RowAction::OneRow,
     .run = showProperties,
     .key = Qt::ALT | Qt::Key_Return},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "&Close"),
     .kinds = designs,
     .needs = RowAction::Separated,
     .run = close},
    {.text = QT_TRANSLATE_NOOP("DesignTree", "Close and &Delete Working Folder..."),
     .kinds = designs,
     .run = closeAndDelete,
     .isPossible = areOfSession},
};

} // namespace

std::span<const RowAction> rowactions::ofDesigns() { return actions; }
