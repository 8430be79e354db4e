#pragma once

#include "scripting/TclScriptManager.h"

#include <QString>

// What all rules use.
extern QString sessionFolder;

// Prints a line, with the session's folder as SESSION.
void print(const QString &line);

// Runs a command, and prints it with its code and what it answers.
void run(TclScripting::TclScriptManager &manager, const QString &command);
