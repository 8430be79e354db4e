#include "app/process/TerminationSignal.h"

#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int insistingTime = 5'000; // milliseconds

int pipeEnds[2] = {-1, -1};
volatile sig_atomic_t isFirst = 1;

// A default action that is raised here takes place when the handler returns.
extern "C" void noteTermination(int number)
{
    const int error = errno;
    if (isFirst) {
        isFirst = 0;
        if (write(pipeEnds[1], "", 1) != 1) { }
    } else {
        signal(number, SIG_DFL);
        raise(number);
    }
    errno = error;
}

} // namespace

TerminationSignal::TerminationSignal(QObject *parent) : QObject(parent)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    arrival = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, &TerminationSignal::take);
    sigaction(SIGTERM, nullptr, &before);
    if (before.sa_handler == SIG_IGN)
        return;
    struct sigaction noting = {};
    noting.sa_handler = noteTermination;
    noting.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &noting, nullptr);
}

TerminationSignal::~TerminationSignal()
{
    if (!arrival)
        return;
    sigaction(SIGTERM, &before, nullptr);
    for (int &end : pipeEnds)
        close(std::exchange(end, -1));
}

void TerminationSignal::take()
{
    char byte = 0;
    if (read(pipeEnds[0], &byte, 1) != 1)
        return;
    QTimer::singleShot(insistingTime, this, [] { isFirst = 1; });
    Q_EMIT arrived();
}
