#include "app/process/BuildInterrupt.h"

#include <MorvalenCore/BuildConfiguration.h>
#include <MorvalenCore/BuildMonitor.h>

#include <QSocketNotifier>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using MorvalenCore::BuildConfiguration;
using MorvalenCore::BuildMonitor;

namespace {

volatile sig_atomic_t writingEnd = -1;

extern "C" void noteSignal(int number)
{
    const int error = errno;
    const auto byte = static_cast<unsigned char>(number);
    if (write(writingEnd, &byte, 1) != 1) { }
    errno = error;
}

} // namespace

BuildInterrupt::BuildInterrupt(QObject *parent) : QObject(parent)
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writingEnd = pipeEnds[1];
    arrival = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, &BuildInterrupt::cancelBuilds);
    const BuildMonitor *monitor = BuildMonitor::instance();
    connect(monitor, &BuildMonitor::started, this, &BuildInterrupt::watch);
    connect(monitor, &BuildMonitor::ended, this, &BuildInterrupt::end);
}

BuildInterrupt::~BuildInterrupt()
{
    stopWatching();
    writingEnd = -1;
    for (const int end : pipeEnds)
        close(end);
}

void BuildInterrupt::watch()
{
    if (watching)
        return;
    watching = true;
    struct sigaction noting = {};
    noting.sa_handler = noteSignal;
    // The second one does what it always does.
    noting.sa_flags = int(SA_RESTART | SA_RESETHAND);
    for (size_t i = 0; i < signalNumbers.size(); ++i) {
        sigaction(signalNumbers[i], nullptr, &before[i]);
        // Whoever has made Ctrl+C its own cancels builds, too.
        const bool isTaken = signalNumbers[i] == SIGINT && before[i].sa_handler != SIG_DFL;
        if (before[i].sa_handler != SIG_IGN && !isTaken)
            sigaction(signalNumbers[i], &noting, nullptr);
    }
}

void BuildInterrupt::stopWatching()
{
    if (!watching)
        return;
    watching = false;
    for (size_t i = 0; i < signalNumbers.size(); ++i)
        sigaction(signalNumbers[i], &before[i], nullptr);
}

void BuildInterrupt::cancelBuilds()
{
    unsigned char byte = 0;
    while (read(pipeEnds[0], &byte, 1) == 1)
        arrived = byte;
    const QList<BuildConfiguration *> running = BuildMonitor::instance()->running();
    for (BuildConfiguration *configuration : running)
        configuration->cancel();
    if (running.isEmpty())
        end();
}

void BuildInterrupt::end()
{
    if (!BuildMonitor::instance()->running().isEmpty())
        return;
    stopWatching();
    // A signal of the last moment, with no build left to be cancelled.
    unsigned char byte = 0;
    while (read(pipeEnds[0], &byte, 1) == 1)
        arrived = byte;
    if (arrived != 0)
        raise(std::exchange(arrived, 0));
}
