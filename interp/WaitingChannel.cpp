#include "interp/WaitingChannel.h"

#include "interp/interruption.h"

#include <QHash>

#include <cstdint>

#include <poll.h>
#include <sys/stat.h>

namespace {

// Of the channels that were asked for: asking takes as long as reading a line of a file.
QHash<Tcl_Channel, bool> &streams()
{
    static QHash<Tcl_Channel, bool> known;
    return known;
}

void forget(ClientData channel) { streams().remove(static_cast<Tcl_Channel>(channel)); }

} // namespace

WaitingChannel::WaitingChannel(Tcl_Channel waiting) : channel(waiting)
{
    Tcl_RegisterChannel(nullptr, channel);
    Tcl_SetChannelOption(nullptr, channel, "-blocking", "0");
}

WaitingChannel::~WaitingChannel()
{
    Tcl_SetChannelOption(nullptr, channel, "-blocking", "1");
    Tcl_UnregisterChannel(nullptr, channel);
}

// A channel that has none keeps being asked as an error, which its next use tells.
int WaitingChannel::descriptor(Tcl_Channel channel)
{
    ClientData handle = nullptr;
    if (!Tcl_ChannelGetHandleProc(Tcl_GetChannelType(channel))
        || Tcl_GetChannelHandle(channel, TCL_READABLE, &handle) != TCL_OK)
        return -1;
    return int(reinterpret_cast<std::intptr_t>(handle));
}

bool WaitingChannel::isStream(Tcl_Channel channel)
{
    const auto known = streams().constFind(channel);
    if (known != streams().constEnd())
        return *known;
    struct stat status = {};
    const bool is = channel != Tcl_GetStdChannel(TCL_STDIN)
        && ::fstat(descriptor(channel), &status) == 0
        && (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
    streams().insert(channel, is);
    Tcl_CreateCloseHandler(channel, forget, channel);
    return is;
}

bool WaitingChannel::isOne(Tcl_Channel channel)
{
    // What a transformation has read already, its descriptor does not tell.
    if (Tcl_GetTopChannel(channel) != channel || !isStream(channel))
        return false;
    Tcl_DString blocking;
    Tcl_DStringInit(&blocking);
    const bool blocks = Tcl_GetChannelOption(nullptr, channel, "-blocking", &blocking) == TCL_OK
        && Tcl_DStringValue(&blocking)[0] == '1';
    Tcl_DStringFree(&blocking);
    return blocks;
}

int WaitingChannel::wait(Tcl_Interp *interp) const
{
    for (;;) {
        if (endOrGoOn(interp) != TCL_OK)
            return TCL_ERROR;
        pollfd polled {descriptor(channel), POLLIN, 0};
        if (::poll(&polled, 1, longestSilence) > 0)
            return TCL_OK;
    }
}
