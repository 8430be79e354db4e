#pragma once

#include "console/SearchStrip.h"

class CommandHistory;

// Searches the history backwards: the newest command that contains what is typed shows at the
// prompt. Ctrl+R and Up go on to older ones; Return keeps the command, to be changed or run; Escape
// brings back what was typed before.
class HistorySearch : public SearchStrip
{
    Q_OBJECT

public:
    HistorySearch(QConsole *owner, CommandHistory *commandHistory);

protected:
    void search() override;
    bool pressed(const QKeyEvent &event) override;
    void cancel() override;

private:
    void showCommand(const QString &command);
    void goToOlder(int before);

    CommandHistory *const history;
    const QString typed;
    int entry;
};
