#pragma once

#include <QStringList>

class QtclConsole;

// Runs entries of the journal again as one command of the console; in the journal they stand in its
// place. Why that is not possible now stands in the status bar or the log. The console may be null.
void runAgain(const QStringList &entries, QtclConsole *console);
