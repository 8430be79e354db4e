#pragma once

#include "interp/export.h"

#include <QtGlobal>

// For as long as one lives, Tcl serves its events from Qt's event loop also where one of them is
// being served, as "vwait" does. For a command that runs an event loop of its own: called from a
// timer or a file event, it would otherwise keep all others waiting until it returns. They nest.
// Does nothing unless the notifier rests.
class TCLSCRIPTING_EXPORT ServedEvents
{
public:
    ServedEvents();
    ~ServedEvents();
    Q_DISABLE_COPY_MOVE(ServedEvents)

private:
    const bool isNeeded;
};
