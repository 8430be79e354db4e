#include "app/window/EditMenu.h"

#include "app/editor/EditorActions.h"
#include "app/window/editkeys.h"
#include "console/QtclConsole.h"

#include <QApplication>
#include <QMenuBar>

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

// What panes, texts and lists may know a key for.
struct KeyRow
{
    const char *text;
    QKeySequence::StandardKey key;
};

const KeyRow keyRows[] = {
    {QT_TRANSLATE_NOOP("EditMenu", "&Undo"), QKeySequence::Undo},
    {QT_TRANSLATE_NOOP("EditMenu", "&Redo"), QKeySequence::Redo},
    {nullptr, QKeySequence::UnknownKey},
    {QT_TRANSLATE_NOOP("EditMenu", "Cu&t"), QKeySequence::Cut},
    {QT_TRANSLATE_NOOP("EditMenu", "&Copy"), QKeySequence::Copy},
    {QT_TRANSLATE_NOOP("EditMenu", "&Paste"), QKeySequence::Paste},
    {QT_TRANSLATE_NOOP("EditMenu", "&Delete"), QKeySequence::Delete},
    {nullptr, QKeySequence::UnknownKey},
    {QT_TRANSLATE_NOOP("EditMenu", "Select &All"), QKeySequence::SelectAll},
    {nullptr, QKeySequence::UnknownKey},
    {QT_TRANSLATE_NOOP("EditMenu", "&Find..."), QKeySequence::Find},
};

// A negative number stands for a separator.
constexpr int separator = -1;
constexpr int editorRows[] = {
    EditorPage::Undo,
    EditorPage::Redo,
    separator,
    EditorPage::Cut,
    EditorPage::Copy,
    EditorPage::Paste,
    separator,
    EditorPage::SelectAll,
    separator,
    EditorPage::Find,
    EditorPage::FindNext,
    EditorPage::FindPrevious,
    EditorPage::Replace,
    separator,
    EditorPage::GoToLine,
    EditorPage::ToggleComment,
    separator,
    EditorPage::ZoomIn,
    EditorPage::ZoomOut,
    EditorPage::ZoomReset,
    EditorPage::SplitView,
    EditorPage::ChooseCoding,
};

} // namespace

EditMenu::EditMenu(EditorActions *editorActions, QWidget *theWindow)
    : QMenu(tr("&Edit"), theWindow),
      editors(editorActions),
      window(theWindow)
{
    setObjectName(u"editMenu"_s);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget *, QWidget *now) { noteFocus(now); });
    connect(this, &QMenu::aboutToShow, this, &EditMenu::rebuild);
    connect(this, &QMenu::aboutToHide, editors, &EditorActions::update);
    rebuild();
}

void EditMenu::noteFocus(QWidget *focused)
{
    const bool isMenu = qobject_cast<QMenuBar *>(focused) || qobject_cast<QMenu *>(focused);
    if (focused && !isMenu && focused->window() == window)
        last = focused;
}

void EditMenu::rebuild()
{
    clear();
    const auto holds = [this](const QWidget *widget) {
        return widget && last && (widget == last || widget->isAncestorOf(last));
    };
    auto *console = window->findChild<QtclConsole *>();
    if (holds(console) && console->isVisible())
        return addConsoleActions(console);
    if (holds(editors->widget()))
        return addEditorActions();
    for (const Pane &pane : std::as_const(panes)) {
        if (holds(pane.widget))
            return addKeyActions(pane);
    }
    if (last && last->isVisible() && editkeys::knows(last))
        return addKeyActions({last,
                              [this](QKeyCombination key) { return editkeys::can(last, key); },
                              [this](QKeyCombination key) { editkeys::press(last, key); }});
    addEditorActions();
    // Their keys do nothing outside of the editors.
    for (QAction *action : actions())
        action->setEnabled(false);
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

void EditMenu::addKeyActions(const Pane &pane)
{
    for (const KeyRow &row : keyRows) {
        if (!row.text) {
            addSeparator();
            continue;
        }
        const QKeySequence sequence(row.key);
        if (sequence.isEmpty())
            continue;
        const QKeyCombination key = sequence[0];
        // Behind a tab, a key shows and is not taken.
        QAction *action =
            addAction(tr(row.text) + u'\t' + sequence.toString(QKeySequence::NativeText));
        action->setEnabled(pane.can(key));
        connect(action, &QAction::triggered, this, [run = pane.run, key] { run(key); });
    }
}

void EditMenu::addEditorActions()
{
    for (const int row : editorRows) {
        if (row == separator)
            addSeparator();
        else
            addAction(editors->action(EditorPage::Command(row)));
    }
}
