#include "managers/SessionPort.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

using Qtilities::Core::Descriptor;
using Qtilities::Core::Result;
using Qtilities::Core::Status;

namespace MorvalenCore {

namespace {

Status lastError() { return Status::io(QString::fromLocal8Bit(std::strerror(errno))); }

} // namespace

SessionPort::SessionPort(QObject *parent) : QObject(parent) { }

SessionPort::~SessionPort() = default;

Result<int> SessionPort::number()
{
    if (boundTo > 0)
        return boundTo;
    Descriptor made(::socket(AF_INET, SOCK_DGRAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    sockaddr_in address {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto *const place = reinterpret_cast<sockaddr *>(&address);
    socklen_t size = sizeof address;
    if (!made || ::bind(made.get(), place, size) != 0 || getsockname(made.get(), place, &size) != 0)
        return lastError();
    socket = std::move(made);
    boundTo = ntohs(address.sin_port);
    arrivals = std::make_unique<QSocketNotifier>(socket.get(), QSocketNotifier::Read, this);
    connect(arrivals.get(), &QSocketNotifier::activated, this, &SessionPort::drop);
    return boundTo;
}

void SessionPort::drop() const
{
    char byte = 0;
    while (recv(socket.get(), &byte, sizeof byte, 0) >= 0) { }
}

} // namespace MorvalenCore
