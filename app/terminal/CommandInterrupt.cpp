#include "app/terminal/CommandInterrupt.h"

#include "interp/ScriptRuns.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {

volatile sig_atomic_t writingEnd = -1;
volatile sig_atomic_t come = 0;

extern "C" void noteInterrupt(int)
{
    const int error = errno;
    come = 1;
    if (write(writingEnd, "", 1) != 1) { }
    errno = error;
}

} // namespace

CommandInterrupt::CommandInterrupt()
{
    ScriptRuns *runs = ScriptRuns::instance();
    if (!runs || pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writingEnd = pipeEnds[1];
    runs->stopOnInput(pipeEnds[0]);
}

// The scripts' runs may still look at the pipe, which goes with the process.
CommandInterrupt::~CommandInterrupt() { setOn(false); }

// A command that waits for the terminal, or for a program, is woken: no call is begun again.
void CommandInterrupt::setOn(bool on)
{
    if (on == isOn || pipeEnds[0] < 0)
        return;
    isOn = on;
    if (!on) {
        sigaction(SIGINT, &before, nullptr);
        return;
    }
    come = 0;
    struct sigaction noting = {};
    noting.sa_handler = noteInterrupt;
    sigaction(SIGINT, nullptr, &before);
    if (before.sa_handler != SIG_IGN)
        sigaction(SIGINT, &noting, nullptr);
}

bool CommandInterrupt::hasCome() const { return come != 0; }
