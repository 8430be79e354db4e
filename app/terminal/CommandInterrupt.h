#pragma once

#include <csignal>

// Lets Ctrl+C stop the command that runs, by ScriptRuns, and not the program. One per process, on
// the GUI thread; Qtk_KeepWindowAlive comes first.
class CommandInterrupt
{
public:
    CommandInterrupt();
    ~CommandInterrupt();
    CommandInterrupt(const CommandInterrupt &) = delete;
    CommandInterrupt &operator=(const CommandInterrupt &) = delete;

    // Whether a command runs. What the shell has switched off stays off.
    void setOn(bool on);
    // Whether Ctrl+C came since it was switched on.
    bool hasCome() const;

private:
    // The signal handler writes to the second what the first is read for.
    int pipeEnds[2] = {-1, -1};
    struct sigaction before = {};
    bool isOn = false;
};
