#pragma once

// Qt's own warnings, about a missing runtime folder or an unusual locale, are no business of the
// program's users: from now on they go to the log as debug messages, from whichever thread they
// come. What makes Qt abort still goes to standard error.
namespace qtmessages {

void sendToLog();

// For the end of the process by exit: some Qts warn while static objects go, when the log is gone
// and the window half.
void dropFromNowOn();

} // namespace qtmessages
