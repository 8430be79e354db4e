#include "console/tclchannels.h"

#include "interp/tcltext.h"

namespace {

struct Stream
{
    bool isError;
    bool lastCR = false;
};

// What is known of the console; never destroyed, since channels are written to until the very end.
struct Known
{
    tclchannels::Receiver receiver;
    bool hasBeen = false;
    void (*make)() = nullptr;
};

Known &known()
{
    static auto *const theKnown = new Known;
    return *theKnown;
}

// What is called may install another one.
tclchannels::Receiver receiver() { return known().receiver; }

tclchannels::Receiver receiverOfText()
{
    if (!known().hasBeen && known().make)
        known().make();
    return receiver();
}

int write(Stream &stream, const char *buf, int toWrite, int *errorCodePtr)
{
    *errorCodePtr = 0;
    Tcl_SetErrno(0);
    const tclchannels::Receiver gatherer = receiver();
    if (gatherer.console && gatherer.gather
        && gatherer.gather(stream.isError, QByteArray::fromRawData(buf, toWrite)))
        return toWrite;
    const bool isText = !stream.lastCR;
    stream.lastCR = !stream.lastCR;
    if (!isText)
        return toWrite;
    const tclchannels::Receiver shown = receiverOfText();
    if (shown.console)
        shown.show(stream.isError, tcltext::fromTcl(buf, qsizetype(qstrnlen(buf, uint(toWrite)))));
    return toWrite;
}

// Tcl calls it without asking whether there is one.
void watch(ClientData, int) { }

Tcl_ChannelType channelType(const char *name, Tcl_DriverOutputProc *output)
{
    Tcl_ChannelType type {};
    type.typeName = name;
    type.version = nullptr;
    type.closeProc = closeProcedureForBothTcl_ChannelType;
    type.outputProc = output;
    type.watchProc = watch;
    return type;
}

// The process's standard channel of a kind; created by the first console and used by later ones.
Tcl_Channel standardChannel(const Tcl_ChannelType &type, const char *name, int stream)
{
    Tcl_Channel channel = Tcl_GetStdChannel(stream);
    if (channel && Tcl_GetChannelType(channel) == &type)
        return channel;
    channel = Tcl_CreateChannel(&type, name, reinterpret_cast<ClientData>(stream), TCL_WRITABLE);
    if (!channel)
        return nullptr;
    Tcl_SetChannelOption(nullptr, channel, "-translation", "lf");
    Tcl_SetChannelOption(nullptr, channel, "-buffering", "none");
    // With Tcl's own size a text of more than 4,096 bytes would arrive in several calls.
    Tcl_SetChannelOption(nullptr, channel, "-buffersize", "1000000");
    return channel;
}

void installOne(Tcl_Interp *interp, const Tcl_ChannelType &type, const char *name, int stream)
{
    Tcl_Channel channel = standardChannel(type, name, stream);
    if (!channel)
        return;
    Tcl_RegisterChannel(interp, channel);
    if (Tcl_GetStdChannel(stream) == channel)
        return;
    // As Tcl does for its own standard channels: no interpreter can take the last reference away.
    Tcl_RegisterChannel(nullptr, channel);
    Tcl_SetStdChannel(channel, stream);
}

} // namespace

int ConsoleOutput(ClientData, const char *buf, int toWrite, int *errorCodePtr)
{
    static Stream stream {.isError = false};
    return write(stream, buf, toWrite, errorCodePtr);
}

int ConsoleError(ClientData, const char *buf, int toWrite, int *errorCodePtr)
{
    static Stream stream {.isError = true};
    return write(stream, buf, toWrite, errorCodePtr);
}

int closeProcedureForBothTcl_ChannelType(ClientData, Tcl_Interp *) { return 0; }

const Tcl_ChannelType consoleOutputChannelType = channelType("console1", ConsoleOutput);
const Tcl_ChannelType consoleErrorChannelType = channelType("console2", ConsoleError);

namespace tclchannels {

void install(Tcl_Interp *interp, const Receiver &receiver)
{
    known().receiver = receiver;
    known().hasBeen = true;
    installOne(interp, consoleOutputChannelType, "stdout", TCL_STDOUT);
    installOne(interp, consoleErrorChannelType, "stderr", TCL_STDERR);
}

void setConsoleMaker(void (*maker)()) { known().make = maker; }

} // namespace tclchannels
