#pragma once

#include <QObject>

#include <array>
#include <csignal>

class QSocketNotifier;

// Lets a signal that asks the program to end (SIGINT, SIGTERM, SIGHUP) cancel the builds that are
// under way before it ends the program, so that no process of theirs is left, whatever it ignores.
// A second signal ends the program at once. Without a build, and where the program was started
// with a signal ignored, signals do what they always do; a SIGINT that somebody else handles is
// left alone. One per process, made on the GUI thread.
class BuildInterrupt : public QObject
{
    Q_OBJECT

public:
    explicit BuildInterrupt(QObject *parent = nullptr);
    ~BuildInterrupt() override;

    // What a signal does to them.
    void cancelBuilds();

private:
    void watch();
    void stopWatching();
    void end();

    static constexpr std::array signalNumbers {SIGINT, SIGTERM, SIGHUP};

    // The signal handler writes to the second what the first is read for.
    int pipeEnds[2] = {-1, -1};
    QSocketNotifier *arrival = nullptr;
    std::array<struct sigaction, signalNumbers.size()> before {};
    bool watching = false;
    int arrived = 0;
};
