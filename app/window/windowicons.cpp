#include "app/window/windowicons.h"

#include "app/drawing/actionicons.h"

#include <QAction>
#include <QWidget>

namespace {

struct Row
{
    const char *action;
    ActionIcon icon;
};

constexpr Row rows[] = {
    {"runShownScript", ActionIcon::Run},
    {"runLastScript", ActionIcon::RunAgain},
    {"stopRunningScript", ActionIcon::Stop},
    {"newScript", ActionIcon::NewPage},
    {"saveRecorded", ActionIcon::Save},
    {"buildOutdated", ActionIcon::Run},
    {"buildAll", ActionIcon::RunAll},
    {"buildRefresh", ActionIcon::RunAgain},
    {"buildCancel", ActionIcon::Stop},
    {"buildEdit", ActionIcon::Edit},
    {"buildAdd", ActionIcon::NewConfiguration},
    {"buildRemove", ActionIcon::Remove},
    {"open", ActionIcon::OpenFolder},
    {"save", ActionIcon::Save},
    {"saveAll", ActionIcon::SaveAll},
    {"editorSave", ActionIcon::Save},
    {"editorSaveAll", ActionIcon::SaveAll},
    {"locate", ActionIcon::GoTo},
    {"findInFiles", ActionIcon::FindInFiles},
    {"nextIssue", ActionIcon::NextIssue},
    {"previousIssue", ActionIcon::PreviousIssue},
    {"nextPane", ActionIcon::NextPane},
    {"previousPane", ActionIcon::PreviousPane},
    {"editorFind", ActionIcon::Find},
    {"editorSplitView", ActionIcon::SplitView},
    {"editorToggleComment", ActionIcon::Comment},
    {"editorZoomIn", ActionIcon::Larger},
    {"editorZoomOut", ActionIcon::Smaller},
    {"showGuide", ActionIcon::Guide},
    {"showKeys", ActionIcon::Keyboard},
};

} // namespace

void windowicons::give(const QWidget *window)
{
    for (const Row &row : rows) {
        const auto found = window->findChildren<QAction *>(QString::fromLatin1(row.action));
        for (QAction *action : found)
            action->setIcon(actionicons::icon(row.icon));
    }
}

QStringList windowicons::actions()
{
    QStringList names;
    for (const Row &row : rows)
        names.append(QString::fromLatin1(row.action));
    return names;
}
