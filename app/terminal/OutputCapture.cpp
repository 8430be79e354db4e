#include "app/terminal/OutputCapture.h"

#include <cstdio>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

OutputCapture::OutputCapture(QObject *parent) : QObject(parent)
{
    // Programs that are started must not find the ends; what takes the place of a standard stream
    // is inherited anyway.
    if (pipe2(pipeEnds, O_CLOEXEC) != 0)
        return;
    fcntl(pipeEnds[0], F_SETFL, O_NONBLOCK);
    wakeEnd = eventfd(0, EFD_CLOEXEC);
    thread = std::thread([this] { run(); });
}

OutputCapture::~OutputCapture()
{
    setOn(false);
    ending = true;
    if (thread.joinable()) {
        eventfd_write(wakeEnd, 1);
        thread.join();
    }
    for (const int end : {pipeEnds[0], pipeEnds[1], wakeEnd})
        close(end);
}

void OutputCapture::setOn(bool on)
{
    if (on == isOn || !thread.joinable())
        return;
    isOn = on;
    std::fflush(stdout);
    for (Stream &stream : streams) {
        if (on && isatty(stream.descriptor)) {
            stream.real = fcntl(stream.descriptor, F_DUPFD_CLOEXEC, 3);
            dup2(pipeEnds[1], stream.descriptor);
        } else if (!on && stream.real >= 0) {
            dup2(stream.real, stream.descriptor);
            close(stream.real);
            stream.real = -1;
        }
    }
}

QByteArray OutputCapture::take()
{
    drain();
    const std::lock_guard lock(guard);
    return std::exchange(pending, {});
}

// Reads what is there. Whether there was anything.
bool OutputCapture::drain()
{
    const std::lock_guard lock(guard);
    const qsizetype before = pending.size();
    char buffer[65536];
    for (;;) {
        const ssize_t count = read(pipeEnds[0], buffer, sizeof buffer);
        if (count <= 0)
            return pending.size() > before;
        pending.append(buffer, count);
    }
}

void OutputCapture::run()
{
    pollfd waited[] {{pipeEnds[0], POLLIN, 0}, {wakeEnd, POLLIN, 0}};
    while (!ending) {
        if (poll(waited, 2, -1) > 0 && !ending && drain())
            Q_EMIT arrived();
    }
}
