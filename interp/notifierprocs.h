#pragma once

#include <tcl.h>

// The procedures that the notifier gives to Tcl. Each may be called before the notifier's state
// exists and after it is gone, and then does nothing.

// Results: none.
// Side effects: starts Tcl's timer with this interval, in whole milliseconds; null clears it.
void SetTimer(const Tcl_Time *time);

// Results: 1; 0 from a poll that found nothing, if the notifier rests.
// Side effects: one pass over Qt's events, in which any callback may run. A notifier that rests
// blocks for at most the given time, for ever with null, until there is an event.
int WaitForEvent(const Tcl_Time *time);

// Results: none.
// Side effects: watches fd for the events of mask, in place of what was watched before.
void CreateFileHandler(int fd, int mask, Tcl_FileProc *proc, ClientData clientData);

// Results: none.
// Side effects: ends the watching of fd; its queued event will do nothing. Tcl calls this for
// descriptors that it never gave to CreateFileHandler, too.
void DeleteFileHandler(int fd);

// Results and side effects: none; the state lives until the process ends.
void FinalizeNotifier(ClientData);
void NotifierExitHandler(ClientData);

// Results: the time, rounded up, as a timer of whole milliseconds must be that shall not go off too
// early.
Tcl_Time wholeMilliseconds(const Tcl_Time &time);

// Queues the event that FileHandlerEventProc handles.
void queueFileEvent(int fd);

// Results: 1 when the event is done with, also when its descriptor is watched no more; 0 when
// flags do not ask for file events.
// Side effects: those of the handler's procedure.
int FileHandlerEventProc(Tcl_Event *event, int flags);
