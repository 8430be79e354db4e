#include "app/designs/arranging.h"

#include "app/calls/HostCall.h"
#include "app/calls/running.h"
#include "app/designs/adding.h"
#include "app/designs/DesignTree.h"
#include "app/editor/EditorArea.h"
#include "app/editor/TextPage.h"
#include "app/journal/journaling.h"
#include "app/messages/messages.h"

#include <MorvalenCore/EditorManager.h>
#include <MorvalenCore/IDesignEditing.h>

#include <QFileInfo>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using MorvalenCore::EditorManager;
using MorvalenCore::Interfaces::IDesign;
using MorvalenCore::Interfaces::IDesignEditing;
using Qtilities::Core::Status;
using Qtilities::Logging::Logger;

namespace {

EditorPage *pageOf(const QString &path, QWidget *window)
{
    const auto *area = window->findChild<EditorArea *>();
    return area ? area->page(QFileInfo(path).canonicalFilePath()) : nullptr;
}

// A page shows the file under its path; the one of the old name goes.
void followInEditor(const QPointer<EditorPage> &page, const QString &newPath, QWidget *window)
{
    auto *area = window->findChild<EditorArea *>();
    if (!page || !area)
        return;
    const bool isInFront = area->currentPage() == page && area->isVisible();
    const QPointer<TextPage> before = qobject_cast<TextPage *>(page.data());
    const TextPage::Place place = before ? before->place() : TextPage::Place();
    // Closing it as users do would ask what to do about a file that is gone.
    page->deleteLater();
    const auto shown =
        EditorManager::instance()->tryCreateEditorForPath(newPath, QString(), isInFront, false);
    Qtilities::Logging::logStatus(shown.status(), Logger::Warning);
    if (auto *text = shown.isOk() ? qobject_cast<TextPage *>(shown.value()) : nullptr)
        text->goTo(place);
}

Status moveWithin(IDesign &design, const QString &path, const QString &node)
{
    auto *editing = qobject_cast<IDesignEditing *>(design.objectBase());
    if (!editing)
        return Status::unsupported(
            DesignTree::tr("The design \"%1\" keeps its files where they are").arg(design.name()));
    const Status moved = editing->tryMoveFile(path, node);
    if (moved.isOk())
        journaling::fileMoved(design, path, node);
    return moved;
}

// From another design.
Status moveHere(const TreeRow &file, IDesign &design, const QString &node, bool stay)
{
    const QString path = file.file()->actualPath();
    const Status added = design.tryAddFile(path, node, true).status();
    if (!added.isOk())
        return added;
    journaling::fileAdded(design, path, node);
    if (stay)
        return {};
    const Status removed = file.design()->tryRemoveFile(path);
    if (removed.isOk())
        journaling::itemRemoved(*file.design(), u"files"_s, path);
    return removed;
}

} // namespace

void arranging::rename(const TreeRow &file, const QString &name, QWidget *window)
{
    if (!file.isThere() || file.file()->fileName() == name)
        return;
    // Asked before the call opens its bracket, which counts as a script's.
    Status status = running::check();
    HostCall attempt(window, DesignTree::tr("Not Renamed"));
    auto *editing = qobject_cast<IDesignEditing *>(file.designObject.data());
    const QString path = file.file()->actualPath();
    const QPointer<EditorPage> page = pageOf(path, window);
    if (status.isOk() && !editing)
        status = Status::unsupported(DesignTree::tr("The design does not rename files"));
    if (status.isOk() && name.contains(u'/'))
        status = Status::invalidArgument(DesignTree::tr("\"%1\" is no name for a file").arg(name));
    if (status.isOk() && page && page->isModified())
        status =
            Status::conflict(DesignTree::tr("\"%1\" has changes in the editor that are not saved")
                                 .arg(page->title()));
    if (!attempt.take(status))
        return;
    const QString newPath = name.isEmpty() ? QString() : QFileInfo(path).path() + u'/' + name;
    if (!attempt.takeAndLog(editing->tryRenameFile(path, newPath), Logger::Warning))
        return;
    journaling::fileRenamed(*file.design(), path, newPath);
    followInEditor(page, newPath, window);
}

bool arranging::mayMove(const QList<TreeRow> &files, const TreeRow &target)
{
    if (!target.isThere() || target.design()->isReadOnly())
        return false;
    const QString node = adding::nodeOf(target);
    return std::any_of(files.cbegin(), files.cend(), [&](const TreeRow &file) {
        return file.isThere() && file.file()
            && (file.designObject != target.designObject
                || (!node.isEmpty() && file.file()->node() != node));
    });
}

void arranging::move(const QList<TreeRow> &files, const TreeRow &target, bool stay, QWidget *window)
{
    if (!mayMove(files, target))
        return;
    const QString node = adding::nodeOf(target);
    const Status free = running::check();
    HostCall attempt(window, DesignTree::tr("Not Moved"));
    if (!attempt.take(free))
        return;
    for (const TreeRow &file : files) {
        if (!file.isThere() || !file.file())
            continue;
        IDesign &design = *target.design();
        const bool isInside = file.designObject == target.designObject;
        attempt.takeAndLog(isInside ? moveWithin(design, file.file()->actualPath(), node)
                                    : moveHere(file, design, node, stay),
                           Logger::Warning);
    }
}
