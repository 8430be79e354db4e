#pragma once

#include "tests/process/Program.h"
#include "tests/process/Screen.h"

#include <sys/types.h>

// The program in a terminal of its own, a pseudo-terminal, with what that shows.
class Terminal
{
public:
    // Runs the program of the fixture with --session in front of the words; or a shell command in
    // which $0 and $@ are that.
    Terminal(const Program &program, const QStringList &words, int columns = 80,
             const QString &shell = {});
    ~Terminal();
    Q_DISABLE_COPY_MOVE(Terminal)

    void type(const QByteArray &keys) const;
    // Types text at the prompt that is shown last, and waits until it is seen there; false when it
    // never is. Keys that come before would be echoed by the terminal.
    bool enter(const QByteArray &text);
    // The same, then Return.
    bool command(const QByteArray &text);
    void resize(int columns);

    // Waits until the screen's text is this; false, and the text is in the log, when it never is.
    bool shows(const QString &text);
    // Waits until it ends with this, or contains it.
    bool endsWith(const QString &text);
    bool contains(const QString &text);
    // The same; false, and nothing is in the log, when the program ends before.
    bool containsBeforeItEnds(const QString &text);

    // Waits for the program's end: its exit status, -1 for a crash or a run that never ended.
    int ended();

    QString text() const { return screen.text(); }

private:
    template <typename Condition>
    bool waitFor(const Condition &condition);
    bool readSome();

    Screen screen;
    int master = -1;
    pid_t child = -1;
    bool isHungUp = false;
};
