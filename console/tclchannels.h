#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

#include <tcl.h>

// Tcl's standard output and standard error as channels that show their text in the console. They
// are write-only and unbuffered: puts hands over a text and its line feed in two calls. Each
// channel shows the text of the first call and swallows that of the second, and so on; it counts
// calls and does not look at contents. A console that gathers whole lines takes every text instead.
namespace tclchannels {

// A console, as the channels see it. Once it is gone they still take text, and show it nowhere.
struct Receiver
{
    QPointer<QObject> console;
    std::function<void(bool isError, const QString &text)> show;
    // Takes every text, if whole lines are gathered; returns whether that is so. None never does.
    std::function<bool(bool isError, const QByteArray &bytes)> gather;
};

// Makes the two channels the interpreter's and the process's standard channels.
void install(Tcl_Interp *interp, const Receiver &receiver);

// What makes a console, and so installs it, for a text that comes before there has been any.
void setConsoleMaker(void (*maker)());

} // namespace tclchannels

// Results: toWrite, always; the error code becomes 0.
// Side effects: every other call shows the text as a paragraph of the console and lets the console
// emit it. The text ends at its first zero byte, or after toWrite bytes.
int ConsoleOutput(ClientData instanceData, const char *buf, int toWrite, int *errorCodePtr);
int ConsoleError(ClientData instanceData, const char *buf, int toWrite, int *errorCodePtr);

// Results: 0.
// Side effects: none.
int closeProcedureForBothTcl_ChannelType(ClientData instanceData, Tcl_Interp *interp);

extern const Tcl_ChannelType consoleOutputChannelType;
extern const Tcl_ChannelType consoleErrorChannelType;
