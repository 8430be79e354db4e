#include "console/ConsoleMenu.h"

#include "console/QConsole.h"

#include <QAction>

namespace {

struct Row
{
    const char *text; // null stands for a separator
    const char *shortcut;
    void (*run)(QConsole *);
};

constexpr Row rows[] = {
    {QT_TRANSLATE_NOOP("QConsole", "Undo"), "Ctrl+Z", [](QConsole *console) { console->undo(); }},
    {QT_TRANSLATE_NOOP("QConsole", "Redo"), "Ctrl+Y", [](QConsole *console) { console->redo(); }},
    {nullptr, nullptr, nullptr},
    {QT_TRANSLATE_NOOP("QConsole", "Cut"), "Ctrl+X", [](QConsole *console) { console->cut(); }},
    {QT_TRANSLATE_NOOP("QConsole", "Copy"), "Ctrl+Ins", [](QConsole *console) { console->copy(); }},
    {QT_TRANSLATE_NOOP("QConsole", "Paste"), "Ctrl+V", [](QConsole *console) { console->paste(); }},
    {QT_TRANSLATE_NOOP("QConsole", "Delete"), "Del", [](QConsole *console) { console->del(); }},
    {nullptr, nullptr, nullptr},
    {QT_TRANSLATE_NOOP("QConsole", "Select All"), "Ctrl+A",
     [](QConsole *console) { console->selectAll(); }},
};

} // namespace

ConsoleMenu::ConsoleMenu(QConsole *console) : QMenu(console)
{
    for (const Row &row : rows) {
        if (!row.text) {
            addSeparator();
            continue;
        }
        auto *action = new QAction(QConsole::tr(row.text), console);
        action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
        connect(action, &QAction::triggered, console, [console, &row] { row.run(console); });
        addAction(action);
    }
}
