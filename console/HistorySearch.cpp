#include "console/HistorySearch.h"

#include "console/CommandHistory.h"
#include "console/QConsole.h"

#include <QKeyEvent>

HistorySearch::HistorySearch(QConsole *owner, CommandHistory *commandHistory)
    : SearchStrip(owner, tr("Search the history:")),
      history(commandHistory),
      typed(owner->getCurrentCommand()),
      entry(int(commandHistory->entries.size()))
{
}

void HistorySearch::search()
{
    entry = int(history->entries.size());
    setNote(QString());
    if (pattern().isEmpty())
        showCommand(typed);
    else
        goToOlder(entry);
}

// A command that has begun meanwhile has the line.
void HistorySearch::showCommand(const QString &command)
{
    if (console->isBusy())
        return;
    console->replaceCurrentCommand(command);
    console->ensureCursorVisible();
}

void HistorySearch::goToOlder(int before)
{
    const int found = history->findOlder(pattern(), before);
    setNote(found < 0 ? tr("not found") : QString());
    if (found < 0)
        return;
    entry = found;
    showCommand(history->command(found));
}

bool HistorySearch::pressed(const QKeyEvent &event)
{
    const bool goesOn = event.key() == Qt::Key_Up
        || (event.key() == Qt::Key_R && event.modifiers() == Qt::ControlModifier);
    if (goesOn && !pattern().isEmpty())
        goToOlder(entry);
    if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
        history->index = entry;
        leave();
        return true;
    }
    return goesOn;
}

void HistorySearch::cancel() { showCommand(typed); }
