#include "app/window/EditMenu.h"

#include "app/editor/EditorActions.h"
#include "console/QtclConsole.h"

using namespace Qt::Literals::StringLiterals;

namespace {

// What the console does by itself, and the key that it knows for it.
struct ConsoleRow
{
    const char *text;
    QKeySequence::StandardKey key;
    void (*run)(QConsole *);
};

const ConsoleRow consoleRows[] = {
    {QT_TRANSLATE_NOOP("EditMenu", "&Undo"), QKeySequence::Undo,
     [](QConsole *console) { console->undo(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "&Redo"), QKeySequence::Redo,
     [](QConsole *console) { console->redo(); }},
    {nullptr, QKeySequence::UnknownKey, nullptr},
    {QT_TRANSLATE_NOOP("EditMenu", "Cu&t"), QKeySequence::Cut,
     [](QConsole *console) { console->cut(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "&Copy"), QKeySequence::Copy,
     [](QConsole *console) { console->copy(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "&Paste"), QKeySequence::Paste,
     [](QConsole *console) { console->paste(); }},
    {QT_TRANSLATE_NOOP("EditMenu", "&Delete"), QKeySequence::Delete,
     [](QConsole *console) { console->del(); }},
    {nullptr, QKeySequence::UnknownKey, nullptr},
    {QT_TRANSLATE_NOOP("EditMenu", "Select &All"), QKeySequence::SelectAll,
     [](QConsole *console) { console->selectAll(); }},
};

// A negative id stands for a separator.
constexpr int separator = -1;
constexpr int editorRows[] = {
    EditorActions::Undo,
    EditorActions::Redo,
    separator,
    EditorActions::Cut,
    EditorActions::Copy,
    EditorActions::Paste,
    separator,
    EditorActions::SelectAll,
    separator,
    EditorActions::Find,
    EditorActions::FindNext,
    EditorActions::FindPrevious,
    EditorActions::Replace,
    separator,
    EditorActions::GoToLine,
    EditorActions::ToggleComment,
    separator,
    EditorActions::ZoomIn,
    EditorActions::ZoomOut,
    EditorActions::ZoomReset,
    EditorActions::SplitView,
    EditorActions::ChooseCoding,
    separator,
    EditorActions::SaveCopy,
    EditorActions::Close,
    EditorActions::CloseAll,
    EditorActions::NextPage,
    EditorActions::PreviousPage,
};

} // namespace

EditMenu::EditMenu(EditorActions *editorActions, QWidget *theWindow)
    : QMenu(tr("&Edit"), theWindow),
      editors(editorActions),
      window(theWindow)
{
    setObjectName(u"editMenu"_s);
    connect(this, &QMenu::aboutToShow, this, &EditMenu::rebuild);
    rebuild();
}

void EditMenu::rebuild()
{
    clear();
    auto *console = window->findChild<QtclConsole *>();
    if (console && console->isVisible())
        addConsoleActions(console);
    else
        addEditorActions();
}

void EditMenu::addConsoleActions(QConsole *console)
{
    for (const ConsoleRow &row : consoleRows) {
        if (!row.text) {
            addSeparator();
            continue;
        }
        // Behind a tab, a key shows and is not taken.
        const QString key = QKeySequence(row.key).toString(QKeySequence::NativeText);
        connect(addAction(tr(row.text) + u'\t' + key), &QAction::triggered, console,
                [console, run = row.run] { run(console); });
    }
}

void EditMenu::addEditorActions()
{
    for (const int id : editorRows) {
        if (id == separator)
            addSeparator();
        else
            addAction(editors->action(EditorActions::Id(id)));
    }
}
