#include "app/editor/EditorActions.h"

#include "app/editor/EditorArea.h"
#include "app/editor/EditorPage.h"

#include <QEvent>

using namespace Qt::Literals::StringLiterals;

namespace {

// Actions for the area itself, and whether there is something for them to do.
struct AreaRow
{
    EditorActions::PagesCommand command;
    const char *text;
    const char *name;
    const char *shortcuts;
    void (*run)(EditorArea *);
    bool (*enabled)(const EditorArea *);
};

bool hasPage(const EditorArea *area) { return area->currentPage(); }
bool hasSeveral(const EditorArea *area) { return area->count() > 1; }
bool hasChanges(const EditorArea *area) { return !area->modifiedPages().isEmpty(); }
bool isChanged(const EditorArea *area)
{
    return hasPage(area) && area->currentPage()->isModified();
}

const AreaRow areaRows[] = {
    {EditorActions::Save, QT_TRANSLATE_NOOP("EditorActions", "&Save"), "editorSave", "Ctrl+S",
     [](EditorArea *area) { area->savePage(area->currentPage()); }, isChanged},
    {EditorActions::SaveAll, QT_TRANSLATE_NOOP("EditorActions", "Save A&ll"), "editorSaveAll",
     "Ctrl+Shift+S", [](EditorArea *area) { area->saveAll(); }, hasChanges},
    {EditorActions::Close, QT_TRANSLATE_NOOP("EditorActions", "&Close"), "editorClose", "Ctrl+W",
     [](EditorArea *area) { area->closePage(area->currentPage()); }, hasPage},
    {EditorActions::CloseOthers, QT_TRANSLATE_NOOP("EditorActions", "Close &Others"),
     "editorCloseOthers", "", [](EditorArea *area) { area->closeOthers(area->currentPage()); },
     hasSeveral},
    {EditorActions::CloseAll, QT_TRANSLATE_NOOP("EditorActions", "Close &All"), "editorCloseAll",
     "Ctrl+Shift+W", [](EditorArea *area) { area->closeAll(); }, hasPage},
    {EditorActions::NextPage, QT_TRANSLATE_NOOP("EditorActions", "&Next File"), "editorNextPage",
     "Ctrl+Tab; Ctrl+PgDown", [](EditorArea *area) { area->step(1); }, hasSeveral},
    {EditorActions::PreviousPage, QT_TRANSLATE_NOOP("EditorActions", "&Previous File"),
     "editorPreviousPage", "Ctrl+Shift+Tab; Ctrl+PgUp", [](EditorArea *area) { area->step(-1); },
     hasSeveral},
};

// Actions for the page in front.
struct PageRow
{
    EditorPage::Command command;
    const char *text;
    const char *name;
    const char *shortcuts;
};

const PageRow pageRows[] = {
    {EditorPage::SaveCopy, QT_TRANSLATE_NOOP("EditorActions", "Save a Cop&y..."), "editorSaveCopy",
     ""},
    {EditorPage::Undo, QT_TRANSLATE_NOOP("EditorActions", "&Undo"), "editorUndo", "Ctrl+Z"},
    {EditorPage::Redo, QT_TRANSLATE_NOOP("EditorActions", "&Redo"), "editorRedo",
     "Ctrl+Y; Ctrl+Shift+Z"},
    {EditorPage::Cut, QT_TRANSLATE_NOOP("EditorActions", "Cu&t"), "editorCut", "Ctrl+X"},
    {EditorPage::Copy, QT_TRANSLATE_NOOP("EditorActions", "&Copy"), "editorCopy", "Ctrl+C"},
    {EditorPage::Paste, QT_TRANSLATE_NOOP("EditorActions", "&Paste"), "editorPaste", "Ctrl+V"},
    {EditorPage::SelectAll, QT_TRANSLATE_NOOP("EditorActions", "Select &All"), "editorSelectAll",
     "Ctrl+A"},
    {EditorPage::Find, QT_TRANSLATE_NOOP("EditorActions", "&Find..."), "editorFind", "Ctrl+F"},
    {EditorPage::FindNext, QT_TRANSLATE_NOOP("EditorActions", "Find &Next"), "editorFindNext",
     "F3"},
    {EditorPage::FindPrevious, QT_TRANSLATE_NOOP("EditorActions", "Find Pre&vious"),
     "editorFindPrevious", "Shift+F3"},
    {EditorPage::Replace, QT_TRANSLATE_NOOP("EditorActions", "R&eplace..."), "editorReplace",
     "Ctrl+H; Ctrl+R"},
    {EditorPage::GoToLine, QT_TRANSLATE_NOOP("EditorActions", "&Go to Line..."), "editorGoToLine",
     "Ctrl+L; Ctrl+G"},
    {EditorPage::ToggleComment, QT_TRANSLATE_NOOP("EditorActions", "Toggle Co&mment"),
     "editorToggleComment", "Ctrl+/"},
    {EditorPage::ZoomIn, QT_TRANSLATE_NOOP("EditorActions", "&Larger Text"), "editorZoomIn",
     "Ctrl++; Ctrl+="},
    {EditorPage::ZoomOut, QT_TRANSLATE_NOOP("EditorActions", "S&maller Text"), "editorZoomOut",
     "Ctrl+-"},
    {EditorPage::ZoomReset, QT_TRANSLATE_NOOP("EditorActions", "&Usual Size of Text"),
     "editorZoomReset", "Ctrl+0"},
    {EditorPage::SplitView, QT_TRANSLATE_NOOP("EditorActions", "Spl&it or Join"), "editorSplitView",
     "Ctrl+\\"},
    {EditorPage::ChooseCoding, QT_TRANSLATE_NOOP("EditorActions", "Co&ding..."), "editorCoding",
     ""},
};

} // namespace

EditorActions::EditorActions(EditorArea *theArea) : QObject(theArea), area(theArea)
{
    const auto add = [this](const auto &row, auto *actions) {
        auto *made = new QAction(tr(row.text), this);
        made->setObjectName(QString::fromLatin1(row.name));
        made->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(row.shortcuts)));
        made->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        area->addAction(made);
        actions->insert(row.command, made);
        return made;
    };
    for (const AreaRow &row : areaRows)
        connect(add(row, &pagesActions), &QAction::triggered, area,
                [this, run = row.run] { run(area); });
    for (const PageRow &row : pageRows) {
        connect(add(row, &pageActions), &QAction::triggered, area, [this, command = row.command] {
            if (area->currentPage())
                area->currentPage()->run(command);
        });
    }
    connect(area, &EditorArea::currentPageChanged, this, &EditorActions::update);
    update();
}

QWidget *EditorActions::widget() const { return area; }

void EditorActions::letPagesReachOut()
{
    area->installEventFilter(this);
    reachOut(area->isVisible());
}

bool EditorActions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide)
        reachOut(event->type() == QEvent::Show);
    return QObject::eventFilter(watched, event);
}

void EditorActions::reachOut(bool isShown)
{
    for (const PagesCommand command : {Close, CloseAll, NextPage, PreviousPage})
        pagesActions[command]->setShortcutContext(isShown ? Qt::WindowShortcut
                                                          : Qt::WidgetWithChildrenShortcut);
}

void EditorActions::update()
{
    for (const AreaRow &row : areaRows)
        pagesActions[row.command]->setEnabled(row.enabled(area));
    const EditorPage *page = area->currentPage();
    for (const PageRow &row : pageRows)
        pageActions[row.command]->setEnabled(page && page->can(row.command));
}
