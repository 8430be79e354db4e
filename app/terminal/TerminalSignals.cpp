#include "app/terminal/TerminalSignals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

int pipeEnds[2] = {-1, -1};

extern "C" void noteTerminalSignal(int number)
{
    const int error = errno;
    const auto byte = static_cast<unsigned char>(number);
    if (write(pipeEnds[1], &byte, 1) != 1) { }
    errno = error;
}

struct sigaction noting()
{
    struct sigaction action = {};
    action.sa_handler = noteTerminalSignal;
    action.sa_flags = SA_RESTART;
    return action;
}

} // namespace

TerminalSignals::TerminalSignals(QObject *parent) : QObject(parent)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    arrival = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, &TerminalSignals::take);
}

TerminalSignals::~TerminalSignals()
{
    setEditing(false);
    for (const int end : pipeEnds)
        close(end);
}

void TerminalSignals::setEditing(bool editing)
{
    if (editing == isEditing)
        return;
    isEditing = editing;
    const struct sigaction action = noting();
    for (size_t i = 0; i < editingSignals.size(); ++i) {
        if (!editing)
            sigaction(editingSignals[i], &before[i], nullptr);
        // What the shell has switched off stays off.
        else if (sigaction(editingSignals[i], nullptr, &before[i]) == 0
                 && before[i].sa_handler != SIG_IGN)
            sigaction(editingSignals[i], &action, nullptr);
    }
}

void TerminalSignals::take()
{
    unsigned char number = 0;
    while (read(pipeEnds[0], &number, 1) == 1) {
        if (number == SIGINT)
            Q_EMIT interrupted();
        else if (number == SIGWINCH)
            Q_EMIT resized();
        else
            pass(number);
    }
}

// Lets the signal do what it does by itself.
void TerminalSignals::pass(int number)
{
    const bool wasEditing = isEditing;
    Q_EMIT leaving();
    setEditing(false);
    raise(number);
    setEditing(wasEditing);
    Q_EMIT returned();
}
