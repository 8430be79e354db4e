#include "app/process/display.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using Qtilities::Core::Status;

namespace display {

namespace {

constexpr int firstPort = 6'000; // of display 0

bool answers(int family, const void *address, std::size_t size)
{
    const int descriptor = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0)
        return false;
    const bool connected =
        ::connect(descriptor, static_cast<const sockaddr *>(address), socklen_t(size)) == 0;
    ::close(descriptor);
    return connected;
}

// A name that begins with a zero byte is one of Linux's abstract names.
bool localSocketAnswers(const QByteArray &name)
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    if (name.isEmpty() || name.size() >= qsizetype(sizeof address.sun_path))
        return false;
    std::copy(name.begin(), name.end(), address.sun_path);
    return answers(AF_UNIX, &address, offsetof(sockaddr_un, sun_path) + std::size_t(name.size()));
}

bool localPortAnswers(int port)
{
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_port = htons(std::uint16_t(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return answers(AF_INET, &address, sizeof address);
}

// ":1", ":1.0" and "unix:1" are displays of this machine.
bool isUsableX(const QString &name)
{
    static const QRegularExpression local(u"^(?:unix)?:(\\d{1,5})(?:\\.\\d+)?$"_s);
    const QRegularExpressionMatch match = local.match(name);
    if (!match.hasMatch())
        return true;
    const QByteArray path = "/tmp/.X11-unix/X" + match.captured(1).toLatin1();
    return localSocketAnswers('\0' + path) || localSocketAnswers(path)
        || localPortAnswers(firstPort + match.captured(1).toInt());
}

bool isUsableWayland(const QString &name)
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return localSocketAnswers(
        QFile::encodeName(name.startsWith(u'/') ? name : folder + u'/' + name));
}

} // namespace

Status check()
{
    if (qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        return {};
    const QString x = qEnvironmentVariable("DISPLAY");
    const QString wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    const QString hint = u"; --batch, -c and --terminal need none"_s;
    if (x.isEmpty() && wayland.isEmpty())
        return Status::notFound(u"there is no display for a window"_s + hint);
    if ((!x.isEmpty() && isUsableX(x)) || (!wayland.isEmpty() && isUsableWayland(wayland)))
        return {};
    return Status::notFound(u"the display \"%1\" does not answer"_s.arg(x.isEmpty() ? wayland : x)
                            + hint);
}

} // namespace display
