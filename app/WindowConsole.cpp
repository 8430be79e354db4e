#include "app/WindowConsole.h"

#include "app/journal/CommandJournal.h"
#include "app/preferences/consolefont.h"
#include "app/session/ConsoleHistory.h"
#include "commands/commandmanuals.h"
#include "console/QtclConsole.h"
#include "ensemble/manuals.h"

void WindowConsole::adopt(QtclConsole *console)
{
    adopted = console;
    console->setAccessibleName(tr("Tcl Console"));
    consolefont::apply(console);
    console->keepLightGround();
    console->setFeatures(QConsole::AllFeatures);
    console->setWholeLines(true);
    console->setNextWords([](const QStringList &words) {
        return commands::nextWords(words) + ensemble::nextWords(words);
    });
    history = new ConsoleHistory(console, this);
    console->keepTypedKeys();
    CommandJournal::instance()->follow(console);
}

QtclConsole *WindowConsole::console() const { return adopted; }

void WindowConsole::followPreferences()
{
    if (adopted)
        consolefont::apply(adopted);
    if (history)
        history->followPreferences();
}

void WindowConsole::remember()
{
    if (history)
        history->write();
}
