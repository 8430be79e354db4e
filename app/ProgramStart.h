#pragma once

#include "app/CommandLine.h"

// What the program does at first in every kind of run.
namespace programstart {

// Statuses of the process.
constexpr int failure = 1;
constexpr int badCommandLine = 2;

// Says why the program cannot go on, and returns the status.
int fail(const QString &reason, int status = badCommandLine);

// Chooses the session folder, and makes what is missing in it.
Qtilities::Core::Status prepareSession(CommandLine *line);

// Brings the host up, once there is an application object: session, log, settings of this run,
// projects, notifier, and the ensemble's command.
void bringHostUp(const CommandLine &line);

} // namespace programstart
