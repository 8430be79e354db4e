#pragma once

#include <tcl.h>

// A pipe or a socket that blocks, while a command reads it: it does not block as long as one lives,
// and the command waits here for what comes.
class WaitingChannel
{
public:
    explicit WaitingChannel(Tcl_Channel channel);
    ~WaitingChannel();
    WaitingChannel(const WaitingChannel &) = delete;
    WaitingChannel &operator=(const WaitingChannel &) = delete;

    // Whether reading could stand still there.
    static bool isOne(Tcl_Channel channel);

    // Returns when there is something to read; or TCL_ERROR, with a message in the result, when the
    // evaluation is to end.
    int wait(Tcl_Interp *interp) const;

private:
    static int descriptor(Tcl_Channel channel);
    static bool isStream(Tcl_Channel channel);

    const Tcl_Channel channel;
};
