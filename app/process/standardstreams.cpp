#include "app/process/standardstreams.h"

#include "interp/tcltext.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace standardstreams {

namespace {

QString asLine(const QString &text)
{
    return text.isEmpty() || text.endsWith(u'\n') ? text : text + u'\n';
}

bool write(std::FILE *stream, const QString &text)
{
    const QByteArray bytes = asLine(text).toUtf8();
    return std::fwrite(bytes.constData(), 1, bytes.size(), stream) == size_t(bytes.size())
        && std::fflush(stream) == 0;
}

struct Stream
{
    int descriptor;
    int tclKind;
};

void replaceChannel(Tcl_Interp *interp, Stream stream)
{
    const Tcl_Channel old = Tcl_GetStdChannel(stream.tclKind);
    const Tcl_Channel channel =
        Tcl_MakeFileChannel(reinterpret_cast<void *>(intptr_t(stream.descriptor)), TCL_WRITABLE);
    Tcl_SetChannelOption(nullptr, channel, "-buffering", "none");
    // Tcl's own first channel on the descriptor may be there still, under the same name; Tcl itself
    // goes on holding it, so that the descriptor stays open.
    const Tcl_Channel twin = Tcl_GetChannel(interp, Tcl_GetChannelName(channel), nullptr);
    Tcl_ResetResult(interp);
    if (twin)
        Tcl_UnregisterChannel(interp, twin);
    Tcl_SetStdChannel(channel, stream.tclKind);
    Tcl_RegisterChannel(interp, channel);
    // As Tcl does for its own standard channels: no interpreter's end closes the descriptor.
    Tcl_RegisterChannel(nullptr, channel);
    if (old)
        Tcl_UnregisterChannel(interp, old);
}

} // namespace

void openClosedOnes()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free descriptor is the one that is missing.
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) [[maybe_unused]]
            const int opened = ::open("/dev/null", O_RDWR);
    }
}

void giveToTcl(Tcl_Interp *interp)
{
    replaceChannel(interp, {STDOUT_FILENO, TCL_STDOUT});
    replaceChannel(interp, {STDERR_FILENO, TCL_STDERR});
}

int shownByTerminal()
{
    if (isatty(STDOUT_FILENO))
        return STDOUT_FILENO;
    return isatty(STDERR_FILENO) ? STDERR_FILENO : -1;
}

bool haveTerminal() { return isatty(STDIN_FILENO) && shownByTerminal() >= 0; }

bool printToTcl(const QString &text)
{
    const Tcl_Channel channel = Tcl_GetStdChannel(TCL_STDOUT);
    if (!channel)
        return false;
    const QByteArray bytes = tcltext::toTcl(asLine(text));
    return Tcl_WriteChars(channel, bytes.constData(), int(bytes.size())) >= 0
        && Tcl_Flush(channel) == TCL_OK;
}

bool print(const QString &text) { return write(stdout, text); }

bool printError(const QString &text) { return write(stderr, text); }

} // namespace standardstreams
